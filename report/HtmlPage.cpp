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
    m_tableOpen = false;
    m_stream << "<html><head><meta http-equiv=\"Content-Type\" content=\"text/html; charset=UTF-8\" />"
                "<title>MORA Test Report</title>"_L1
             << Qt::endl;
    m_stream << "<style type=\"text/css\">"_L1 << Qt::endl;
    for (const QLatin1StringView rule : styleRules)
        m_stream << "  "_L1 << rule << Qt::endl;
    m_stream << "</style></head>"_L1 << Qt::endl;
    m_stream << "<body>"_L1 << Qt::endl;

    m_stream << "<p align=\"center\" class=\"header\">Test Report"_L1;
    if (!logo.isEmpty())
        m_stream << "<img src=\""_L1 << logo << "\" align=\"right\"/>"_L1;
    m_stream << "</p>"_L1 << Qt::endl;
    m_stream << "<br><br>"_L1 << Qt::endl;
}

void HtmlPage::End()
{
    m_stream << "</body></html>"_L1 << Qt::endl;
}

void HtmlPage::LineBreak()
{
    m_stream << "<br>"_L1;
}

void HtmlPage::HorizontalRule()
{
    m_stream << "<hr>"_L1;
}

void HtmlPage::Headline(const QString& text)
{
    m_stream << "<p"_L1;
    Attribute("class"_L1, u"headline"_s);
    m_stream << '>' << text << "</p>"_L1 << Qt::endl;
}

void HtmlPage::OpenTable(const QString& tableClass)
{
    if (m_tableOpen)
        return;
    m_stream << "<table width=\"100%\" cellspacing=\"0\" cellpadding=\"4\""_L1;
    Attribute("class"_L1, tableClass);
    m_stream << '>' << Qt::endl;
    m_tableOpen = true;
}

void HtmlPage::CloseTable()
{
    if (!m_tableOpen)
        return;
    m_stream << "</table>"_L1 << Qt::endl;
    m_tableOpen = false;
}

void HtmlPage::OpenRow(const QString& rowClass)
{
    m_stream << "  <tr"_L1;
    Attribute("class"_L1, rowClass);
    m_stream << '>' << Qt::endl;
}

void HtmlPage::CloseRow()
{
    m_stream << "  </tr>"_L1 << Qt::endl;
}

void HtmlPage::HeaderCell(const QString& title)
{
    m_stream << "  <th"_L1;
    Attribute("class"_L1, u"th"_s);
    m_stream << '>' << title << "</th>"_L1 << Qt::endl;
}

void HtmlPage::Cell(QStringView value, const QString& cellClass, const QString& id, int span)
{
    m_stream << "    <td"_L1;
    Attribute("class"_L1, cellClass);
    Attribute("id"_L1, id);
    if (span > 1)
        Attribute("colspan"_L1, QString::number(span));
    m_stream << '>' << value << "</td>"_L1 << Qt::endl;
}

void HtmlPage::Pair(const QString& label, const QString& value)
{
    Cell(label, u"name"_s);
    Cell(value, u"value"_s);
}

void HtmlPage::Attribute(QLatin1StringView name, const QString& value)
{
    if (!value.isEmpty())
        m_stream << ' ' << name << "=\""_L1 << value << '"';
}

} // namespace ZYN
