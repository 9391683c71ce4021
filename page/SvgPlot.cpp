#include "page/SvgPlot.h"

#include "page/Html.h"
#include "page/Ink.h"

#include <QtCore/QBuffer>
#include <QtCore/QRegularExpression>
#include <QtGui/QPainter>
#include <QtSvg/QSvgGenerator>

namespace ZYN::Page {

namespace {

QByteArray Painted(const QSizeF& size, const std::function<void(QPainter&, const QRectF&)>& draw)
{
    QBuffer buffer;
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    generator.setResolution(96); // one unit a pixel
    generator.setSize(size.toSize());
    generator.setViewBox(QRectF(QPointF(), size));
    QPainter painter(&generator);
    draw(painter, QRectF(QPointF(), size));
    painter.end();
    return buffer.data();
}

QString Attribute(const QString& tag, const char* name)
{
    const QString start = QLatin1Char(' ') + QLatin1String(name) + QStringLiteral("=\"");
    const qsizetype from = tag.indexOf(start);
    if (from < 0)
        return {};
    const qsizetype begin = from + start.size();
    return tag.mid(begin, tag.indexOf(QLatin1Char('"'), begin) - begin);
}

QString Variable(const QString& colour)
{
    const QColor asked(colour);
    for (const InkColour& ink : inkColours)
        if (QColor(ink.light) == asked)
            return QStringLiteral("var(%1)").arg(QLatin1String(ink.variable));
    return colour;
}

// What a group of the generator says in twenty attributes, in the few that differ from what is usual.
QString ShortGroup(const QString& tag)
{
    QString style;
    const QString fill = Attribute(tag, "fill");
    const QString stroke = Attribute(tag, "stroke");
    style += QStringLiteral("fill:") + (fill == QLatin1String("none") ? fill : Variable(fill));
    if (stroke == QLatin1String("none") || stroke.isEmpty()) {
        style += QStringLiteral(";stroke:none");
    } else {
        style += QStringLiteral(";stroke:") + Variable(stroke);
        if (const QString width = Attribute(tag, "stroke-width"); width != QLatin1String("1"))
            style += QStringLiteral(";stroke-width:") + width;
        if (const QString dashes = Attribute(tag, "stroke-dasharray"); !dashes.isEmpty())
            style += QStringLiteral(";stroke-dasharray:") + dashes;
        if (Attribute(tag, "stroke-linecap") == QLatin1String("round"))
            style += QStringLiteral(";stroke-linecap:round");
    }
    return QStringLiteral("<g style=\"%1\">").arg(style);
}

// The text's colour is the pen's: the generator writes it as the fill of the text.
QString ShortText(const QString& tag)
{
    QString text = QStringLiteral("<text x=\"%1\" y=\"%2\"").arg(Attribute(tag, "x"), Attribute(tag, "y"));
    if (const QString fill = Attribute(tag, "fill"); !fill.isEmpty())
        text += QStringLiteral(" style=\"fill:%1;stroke:none\"").arg(Variable(fill));
    return text + QLatin1Char('>');
}

// Places with one digit behind the point; what goes straight up or nowhere in its short form.
QString ShortPath(QString path)
{
    for (const char* const usual : {" vector-effect=\"none\"", " fill-rule=\"evenodd\"", " fill=\"none\""})
        path.remove(QLatin1String(usual));
    static const QRegularExpression number(QStringLiteral("\\d+\\.\\d{2,}"));
    QString text;
    qsizetype done = 0;
    for (auto match = number.globalMatch(path); match.hasNext();) {
        const QRegularExpressionMatch place = match.next();
        text += QStringView(path).mid(done, place.capturedStart() - done);
        text += QString::number(qRound(place.captured().toDouble() * 10) / 10.0);
        done = place.capturedEnd();
    }
    text += QStringView(path).mid(done);
    static const QRegularExpression dot(QStringLiteral("M([\\d.]+),([\\d.]+) L\\1,\\2(?=[ \"])\\s*"));
    static const QRegularExpression upright(QStringLiteral("M([\\d.]+),([\\d.]+) L\\1,"));
    text.replace(dot, QStringLiteral("M\\1,\\2h0"));
    return text.replace(upright, QStringLiteral("M\\1,\\2V"));
}

QString Shortened(const QString& svg)
{
    static const QRegularExpression tags(QStringLiteral("<(g|text|path|polyline)\\b[^>]*>"));
    QString text;
    qsizetype done = 0;
    for (auto match = tags.globalMatch(svg); match.hasNext();) {
        const QRegularExpressionMatch tag = match.next();
        text += QStringView(svg).mid(done, tag.capturedStart() - done);
        done = tag.capturedEnd();
        QString whole = tag.captured();
        if (tag.captured(1) == QLatin1String("g"))
            whole = ShortGroup(whole);
        else if (tag.captured(1) == QLatin1String("text"))
            whole = ShortText(whole);
        else
            whole = ShortPath(whole);
        text += whole;
    }
    text += QStringView(svg).mid(done);
    static const QRegularExpression empty(QStringLiteral("<g [^>]*>\\s*</g>"));
    return text.remove(empty).replace(QRegularExpression(QStringLiteral("\\n\\s*")), QStringLiteral("\n"));
}

} // namespace

QByteArray SvgPlot(const QSizeF& size, const QString& title, const QString& description,
                   const std::function<void(QPainter&, const QRectF&)>& draw,
                   const std::function<QString()>& links)
{
    const QString whole = QString::fromUtf8(Painted(size, draw));
    const qsizetype begin = whole.indexOf(QStringLiteral("</defs>"));
    const QString body = whole.mid(begin + 7, whole.lastIndexOf(QStringLiteral("</svg>")) - begin - 7);
    const QString above = links ? links() : QString();
    return QStringLiteral(
               "<svg viewBox=\"0 0 %1 %2\" role=\"%3\"><title>%4</title><desc>%5</desc>%6%7</svg>\n")
        .arg(QString::number(size.width()), QString::number(size.height()),
             above.isEmpty() ? QStringLiteral("img") : QStringLiteral("group"), Escaped(title),
             Escaped(description), Shortened(body).trimmed(), above)
        .toUtf8();
}

} // namespace ZYN::Page
