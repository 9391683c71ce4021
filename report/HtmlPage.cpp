#include "HtmlPage.h"

namespace ZYN {

namespace {

// No more than what the rich-text engine of Qt knows, which draws the same page as PDF.
constexpr const char* styleRules[] = {
    "p, li { white-space: pre-wrap; }",
    "body { Font-family: Arial, Helvetica, sans-serif; font-size:9pt; font-weight:400; font-style:normal; "
    "text-decoration:none; }",
    "p.headline { text-align:left; font-size:16pt; font-weight:600; }",
    "h1 { text-align:center; font-size:20pt; font-weight:600; }",
    "table { width: 100%; }",
    "table.overview { }",
    "tr.overview { font-size:10pt; }",
    "td { text-align:left; }",
    "tr.tg { font-size:10pt; font-weight:600; background-color: #A7A9AC; }",
    "tr.ts { font-size:10pt; }",
    "tr.tm { font-size:8pt; }",
    "tr.tp { font-size:8pt; }",
    "th.th { font-size:12pt; font-weight:600; text-align:center; background-color: #009AA3; }",
    "td.ar { text-align:right; }",
    "td.value { font-weight:400; }",
    "td.name { font-weight:600; }",
    "hr { border: 1px solid #e0e0e0; }",
    "p.header { margin-top:12px; margin-bottom:12px; margin-left:0px; margin-right:0px; -qt-block-indent:0; "
    "text-indent:0px; text-align:center; font-size:20pt; font-weight:600; }",
    "#FAIL { background-color: #ff6666; }",
};

} // namespace

void HtmlPage::Begin(const QString& logo)
{
    tableOpen = false;
    stream << "<html><head><meta http-equiv=\"Content-Type\" content=\"text/html; charset=UTF-8\" />"
              "<title>MORA Test Report</title>"
           << Qt::endl;
    stream << "<style type=\"text/css\">" << Qt::endl;
    for (const char* const rule : styleRules)
        stream << "  " << rule << Qt::endl;
    stream << "</style></head>" << Qt::endl;
    stream << "<body>" << Qt::endl;

    stream << "<p align=\"center\" class=\"header\">Test Report";
    if (!logo.isEmpty())
        stream << "<img src=\"" << logo << "\" align=\"right\"/>";
    stream << "</p>" << Qt::endl;
    stream << "<br><br>" << Qt::endl;
}

void HtmlPage::End()
{
    stream << "</body></html>" << Qt::endl;
}

void HtmlPage::LineBreak()
{
    stream << "<br>";
}

void HtmlPage::HorizontalRule()
{
    stream << "<hr>";
}

void HtmlPage::Headline(const QString& text)
{
    stream << "<p";
    Attribute("class", QStringLiteral("headline"));
    stream << '>' << text << "</p>" << Qt::endl;
}

void HtmlPage::OpenTable(const QString& tableClass)
{
    if (tableOpen)
        return;
    stream << "<table width=\"100%\" cellspacing=\"0\" cellpadding=\"4\"";
    Attribute("class", tableClass);
    stream << '>' << Qt::endl;
    tableOpen = true;
}

void HtmlPage::CloseTable()
{
    if (!tableOpen)
        return;
    stream << "</table>" << Qt::endl;
    tableOpen = false;
}

void HtmlPage::OpenRow(const QString& rowClass)
{
    stream << "  <tr";
    Attribute("class", rowClass);
    stream << '>' << Qt::endl;
}

void HtmlPage::CloseRow()
{
    stream << "  </tr>" << Qt::endl;
}

void HtmlPage::HeaderCell(const QString& title)
{
    stream << "  <th";
    Attribute("class", QStringLiteral("th"));
    stream << '>' << title << "</th>" << Qt::endl;
}

void HtmlPage::Cell(const QString& value, const QString& cellClass, const QString& id, int span)
{
    stream << "    <td";
    Attribute("class", cellClass);
    Attribute("id", id);
    if (span > 1)
        Attribute("colspan", QString::number(span));
    stream << '>' << value << "</td>" << Qt::endl;
}

void HtmlPage::Pair(const QString& label, const QString& value)
{
    Cell(label, QStringLiteral("name"));
    Cell(value, QStringLiteral("value"));
}

void HtmlPage::Attribute(const char* name, const QString& value)
{
    if (!value.isEmpty())
        stream << ' ' << name << "=\"" << value << '"';
}

} // namespace ZYN
