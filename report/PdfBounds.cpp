#include "PdfBounds.h"

#include <QtCore/QObject>
#include <QtGui/QTextBlock>
#include <QtGui/QTextDocument>
#include <QtGui/QTextTable>

#include <algorithm>

namespace ZYN::PdfBounds {

namespace {

// What is refused takes Qt's layout more than some seconds, measured: each table inside another one doubles
// the time, of everything else it grows with the square. A report's own page is far from all of them.
constexpr int deepestTables = 8;
constexpr int mostTables = 5'000;
constexpr int mostColumns = 1'000;
constexpr int deepestElements = 5'000;
constexpr qsizetype longestWord = 50'000;

struct Tables {
    int depth = 0;
    int count = 0;
    int columns = 0;
};

Tables TablesIn(const QTextFrame* frame)
{
    Tables tables;
    for (const QTextFrame* const child : frame->childFrames()) {
        const Tables inside = TablesIn(child);
        const auto* const table = qobject_cast<const QTextTable*>(child);
        tables.depth = std::max(tables.depth, inside.depth + 1);
        tables.count += inside.count + 1;
        tables.columns = std::max({tables.columns, inside.columns, table ? table->columns() : 0});
    }
    return tables;
}

qsizetype LongestWordIn(const QTextDocument& document)
{
    qsizetype longest = 0;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        if (block.length() <= longestWord)
            continue;
        qsizetype length = 0;
        for (const QChar c : block.text()) {
            length = c.isSpace() ? 0 : length + 1;
            longest = std::max(longest, length);
        }
    }
    return longest;
}

/// Whether an element that begins so has no end tag.
bool IsVoid(QByteArrayView tag)
{
    for (const char* const name : {"br", "hr", "img", "link", "meta"})
        if (tag.size() > qsizetype(qstrlen(name)) && qstrnicmp(tag.data(), name, qstrlen(name)) == 0)
            return true;
    return false;
}

} // namespace

QString WhyTooDear(const QByteArray& html)
{
    int depth = 0;
    int deepest = 0;
    for (qsizetype at = html.indexOf('<'); at >= 0; at = html.indexOf('<', at + 1)) {
        const QByteArrayView tag = QByteArrayView(html).sliced(at + 1);
        if (tag.startsWith('/'))
            depth = std::max(0, depth - 1);
        else if (!tag.isEmpty() && QChar::fromLatin1(tag.front()).isLetter() && !IsVoid(tag))
            deepest = std::max(deepest, ++depth);
    }
    if (deepest > deepestElements)
        return QObject::tr("its texts hold more than %1 HTML elements inside each other")
            .arg(deepestElements);
    return QString();
}

QString WhyTooDear(const QTextDocument& document)
{
    const Tables tables = TablesIn(document.rootFrame());
    if (tables.depth > deepestTables)
        return QObject::tr("a text holds HTML tables more than %1 deep inside each other")
            .arg(deepestTables - 1);
    if (tables.count > mostTables)
        return QObject::tr("it has more than %1 tables").arg(mostTables);
    if (tables.columns > mostColumns)
        return QObject::tr("a text holds an HTML table of more than %1 columns").arg(mostColumns);
    if (LongestWordIn(document) > longestWord)
        return QObject::tr("a text has more than %1 characters without a blank").arg(longestWord);
    return QString();
}

} // namespace ZYN::PdfBounds
