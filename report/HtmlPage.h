#pragma once

#include <QtCore/QString>
#include <QtCore/QTextStream>

namespace ZYN {

/// The elements of an HTML report. Knows tags, classes and spans and nothing of the model; texts are
/// written as they are, without escaping.
class HtmlPage {
public:
    explicit HtmlPage(QTextStream& output)
        : m_stream(output)
    {
    }

    /// Everything before the body's content: head, style sheet and, centred, the report's title.
    /// \param logo where the logo lies as the page refers to it; empty for none
    void Begin(const QString& logo);
    void End();

    void LineBreak();
    void HorizontalRule();
    void Headline(const QString& text);

    /// Tables never nest: with a table open nothing is written, and what follows goes on in that one.
    void OpenTable(const QString& tableClass = QString());
    /// Writes nothing when no table is open.
    void CloseTable();
    void OpenRow(const QString& rowClass);
    void CloseRow();
    void HeaderCell(const QString& title);
    /// \param id the style sheet marks cells of the id "FAIL"
    /// \param span number of columns
    void Cell(QStringView value, const QString& cellClass, const QString& id = QString(), int span = 1);
    /// A cell with a label and the cell with its value.
    void Pair(const QString& label, const QString& value);

private:
    void Attribute(QLatin1StringView name, const QString& value);

    QTextStream& m_stream;
    bool m_tableOpen = false;
};

} // namespace ZYN
