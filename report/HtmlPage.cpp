#include "HtmlPage.h"

namespace ZYN {

using namespace Qt::StringLiterals;

namespace {

// No more than what the rich-text engine of Qt knows, which draws the same page as PDF.
constexpr QLatin1StringView styleRules[] = {
    "p, li { white-space: pre-wrap; }"_L1,
    "body { Font-family: Arial, Helvetica, sans-serif; font-size:9pt; font-weight:400; font-style:normal; "
    "text-decoration:none; }"_L1,
    "p.headline { text-align:left; font-size:16pt; font-weight:600; }"_L1,
    "h1 { text-align:center; font-size:20pt; font-weight:600; }"_L1,
    "table { width: 100%; }"_L1,
    "table.overview { }"_L1,
    "tr.overview { font-size:10pt; }"_L1,
    "td { text-align:left; }"_L1,
    "tr.tg { font-size:10pt; font-weight:600; background-color: #A7A9AC; }"_L1,
    "tr.ts { font-size:10pt; }"_L1,
    "tr.tm { font-size:8pt; }"_L1,
    "tr.tp { font-size:8pt; }"_L1,
    "th.th { font-size:12pt; font-weight:600; text-align:center; background-color: #009AA3; }"_L1,
    "td.ar { text-align:right; }"_L1,
    "td.value { font-weight:400; }"_L1,
    "td.name { font-weight:600; }"_L1,
    "hr { border: 1px solid #e0e0e0; }"_L1,
    "p.header { margin-top:12px; margin-bottom:12px; margin-left:0px; margin-right:0px; -qt-block-indent:0; "
    "text-indent:0px; text-align:center; font-size:20pt; font-weight:600; }"_L1,
    "#FAIL { background-color: #ff6666; }"_L1,
};

} // namespace

void HtmlPage::Begin(const QString& logo)
{
    tableOpen = false;
    stream << "<html><head><meta http-equiv=\"Content-Type\" content=\"text/html; charset=UTF-8\" />"
              "<title>MORA Test Report</title>"_L1
           << Qt::endl;
    stream << "<style type=\"text/css\">"_L1 << Qt::endl;
    for (const QLatin1StringView rule : styleRules)
        stream << "  "_L1 << rule << Qt::endl;
    stream << "</style></head>"_L1 << Qt::endl;
    stream << "<body>"_L1 << Qt::endl;

    stream << "<p align=\"center\" class=\"header\">Test Report"_L1;
    if (!logo.isEmpty())
        stream << "<img src=\""_L1 << logo << "\" align=\"right\"/>"_L1;
    stream << "</p>"_L1 << Qt::endl;
    stream << "<br><br>"_L1 << Qt::endl;
}

void HtmlPage::End()
{
    stream << "</body></html>"_L1 << Qt::endl;
}

void HtmlPage::LineBreak()
{
    stream << "<br>"_L1;
}

void HtmlPage::HorizontalRule()
{
    stream << "<hr>"_L1;
}

void HtmlPage::Headline(const QString& text)
{
    stream << "<p"_L1;
    Attribute("class"_L1, u"headline"_s);
    stream << '>' << text << "</p>"_L1 << Qt::endl;
}

void HtmlPage::OpenTable(const QString& tableClass)
{
    if (tableOpen)
        return;
    stream << "<table width=\"100%\" cellspacing=\"0\" cellpadding=\"4\""_L1;
    Attribute("class"_L1, tableClass);
    stream << '>' << Qt::endl;
    tableOpen = true;
}

void HtmlPage::CloseTable()
{
    if (!tableOpen)
        return;
    stream << "</table>"_L1 << Qt::endl;
    tableOpen = false;
}

void HtmlPage::OpenRow(const QString& rowClass)
{
    stream << "  <tr"_L1;
    Attribute("class"_L1, rowClass);
    stream << '>' << Qt::endl;
}

void HtmlPage::CloseRow()
{
    stream << "  </tr>"_L1 << Qt::endl;
}

void HtmlPage::HeaderCell(const QString& title)
{
    stream << "  <th"_L1;
    Attribute("class"_L1, u"th"_s);
    stream << '>' << title << "</th>"_L1 << Qt::endl;
}

void HtmlPage::Cell(QStringView value, const QString& cellClass, const QString& id, int span)
{
    stream << "    <td"_L1;
    Attribute("class"_L1, cellClass);
    Attribute("id"_L1, id);
    if (span > 1)
        Attribute("colspan"_L1, QString::number(span));
    stream << '>' << value << "</td>"_L1 << Qt::endl;
}

void HtmlPage::Pair(const QString& label, const QString& value)
{
    Cell(label, u"name"_s);
    Cell(value, u"value"_s);
}

void HtmlPage::Attribute(QLatin1StringView name, const QString& value)
{
    if (!value.isEmpty())
        stream << ' ' << name << "=\""_L1 << value << '"';
}

} // namespace ZYN
