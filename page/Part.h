#pragma once

#include <QtCore/QString>

namespace ZYN::Page {

/// The part of a page about one lot: the only one, or one of several that have a heading each.
struct Part {
    int number = 1; ///< on the page: anchors begin with it
    bool isOneOfSeveral = false;

    /// A heading one below that of the part, which is the page's where the part is the only one.
    /// \param deeper further levels below \param attributes with a blank before them
    QString Heading(const QString& html, int deeper = 0, const QString& attributes = {}) const
    {
        const QString level = QString::number((isOneOfSeveral ? 3 : 2) + deeper);
        return QStringLiteral("<h%1 class=\"h\"%2>%3</h%1>\n").arg(level, attributes, html);
    }
};

} // namespace ZYN::Page
