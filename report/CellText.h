#pragma once

#include "text/ShortText.h"

#include <QtCore/QString>
#include <QtCore/QTextStream>

namespace ZYN {

/// The text of a cell: a text of the model, or a number, whose digits need no memory of their own. A report
/// has millions of them.
class CellText {
public:
    CellText() = default;
    CellText(QString text) // a text is a cell's text wherever one is wanted
        : m_text(std::move(text))
    {
    }

    /// A whole number in decimal, between the two texts.
    static CellText Integer(qint64 number, QLatin1StringView before = {}, QLatin1StringView after = {});
    /// A real number as `QVariant::toString` writes it.
    static CellText Real(double number);

    /// Valid as long as this object.
    QStringView View() const& { return m_number.IsEmpty() ? QStringView(m_text) : m_number.View(); }
    QStringView View() && = delete;

private:
    void AddFixed(quint64 digits, int places);

    QString m_text;
    ShortText<32> m_number; ///< longer than any number with what stands around it
};

inline QTextStream& operator<<(QTextStream& stream, const CellText& text)
{
    return stream << text.View();
}

} // namespace ZYN
