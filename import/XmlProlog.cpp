#include "XmlProlog.h"

#include <QtCore/QObject>
#include <QtCore/QStringConverter>
#include <QtCore/QXmlStreamReader>

#include <functional>
#include <numeric>
#include <optional>

namespace ZYN::XmlProlog {

namespace {

using Encoding = QStringConverter::Encoding;

/// How many bytes a character of the markup takes.
int WidthOf(std::optional<Encoding> encoding)
{
    switch (encoding.value_or(Encoding::Utf8)) {
    case Encoding::Utf16:
    case Encoding::Utf16LE:
    case Encoding::Utf16BE:
        return 2;
    case Encoding::Utf32:
    case Encoding::Utf32LE:
    case Encoding::Utf32BE:
        return 4;
    default:
        return 1;
    }
}

/// A document of wide characters with a byte for each: markup as it is, everything else a letter.
QByteArray Narrowed(const QByteArray& document, int width)
{
    QByteArray narrow;
    narrow.reserve(document.size() / width);
    for (qsizetype i = 0; i + width <= document.size(); i += width) {
        const QByteArrayView unit = QByteArrayView(document).sliced(i, width);
        const char sum = std::accumulate(unit.begin(), unit.end(), '\0', std::bit_or<>());
        narrow += unit.count('\0') == width - 1 ? sum : 'x';
    }
    return narrow;
}

/// Where a text ends that begins at or behind a place; the end of all where it does not come.
qsizetype EndOf(const QByteArray& markup, const char* text, qsizetype from)
{
    const qsizetype found = markup.indexOf(text, from);
    return found < 0 ? markup.size() : found + qsizetype(qstrlen(text));
}

/// Moves from the "<" of a tag to its end, or of a document type to the declarations in it.
/// \return false when it has too many attributes
bool SkipTag(const QByteArray& markup, qsizetype& at)
{
    int attributes = 0;
    for (; at < markup.size() && markup[at] != '>' && markup[at] != '['; ++at) {
        const char c = markup[at];
        if (c == '"' || c == '\'')
            at = EndOf(markup, c == '"' ? "\"" : "'", at + 1) - 1;
        else if (c == '=' && ++attributes > maximumAttributes)
            return false;
    }
    return true;
}

/// The line of the first start tag with too many attributes; 0 for none. Looks for no other fault: where the
/// document is no XML, its reader stops.
qint64 LineOfCrowdedTag(const QByteArray& markup)
{
    qsizetype at = 0;
    while ((at = markup.indexOf('<', at)) >= 0) {
        const qsizetype start = at;
        const QByteArrayView rest = QByteArrayView(markup).sliced(at);
        if (rest.startsWith("<!--"))
            at = EndOf(markup, "-->", at + 4);
        else if (rest.startsWith("<![CDATA["))
            at = EndOf(markup, "]]>", at);
        else if (rest.startsWith("<?"))
            at = EndOf(markup, "?>", at);
        else if (!SkipTag(markup, at))
            return QByteArrayView(markup).first(start).count('\n') + 1;
    }
    return 0;
}

/// Why the document is refused once the reader has read this token of its prolog; empty for no reason.
QString Refusal(const QXmlStreamReader& reader, int width)
{
    // Bytes that are looked at in one encoding must not be read in another: a document that calls itself
    // UTF-16 and begins in single bytes hides its tags from whoever looks at those.
    if (reader.isStartDocument() && !reader.documentEncoding().isEmpty() &&
        WidthOf(QStringConverter::encodingForName(reader.documentEncoding().toLatin1())) != width)
        return QObject::tr("The document is not in the encoding that it names: %1")
            .arg(reader.documentEncoding());
    if (reader.isDTD() && !reader.entityDeclarations().isEmpty())
        return QObject::tr("Documents that declare entities are not supported");
    if (reader.isDTD() && reader.text().contains(QLatin1String("<!ATTLIST")))
        return QObject::tr("Documents that declare attributes are not supported");
    return QString();
}

} // namespace

bool MoveToRoot(QXmlStreamReader& reader, const QByteArray& document)
{
    const int width = WidthOf(QStringConverter::encodingForData(document, u'<'));
    if (const qint64 line = LineOfCrowdedTag(width == 1 ? document : Narrowed(document, width)))
        reader.raiseError(QObject::tr("The start tag in line %1 has more than %2 attributes")
                              .arg(QString::number(line), QString::number(maximumAttributes)));
    // Stops what is expanded inside the document type itself, before it can be looked at.
    reader.setEntityExpansionLimit(0);
    while (!reader.atEnd()) {
        if (reader.readNext() == QXmlStreamReader::StartElement)
            return true;
        if (const QString refusal = Refusal(reader, width); !refusal.isEmpty())
            reader.raiseError(refusal);
    }
    return false;
}

} // namespace ZYN::XmlProlog
