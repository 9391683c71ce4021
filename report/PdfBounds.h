#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

class QTextDocument;

/// Texts of a report are taken for HTML, and some pages of a few kilobytes take minutes or years to lay out.
namespace ZYN::PdfBounds {

/// Why a page cannot be made a document in a reasonable time; empty for an ordinary one.
QString WhyTooDear(const QByteArray& html);
/// Why a document cannot be laid out in a reasonable time; empty for an ordinary one.
QString WhyTooDear(const QTextDocument& document);

} // namespace ZYN::PdfBounds
