#include "files/Workbook.h"

#include <QtCore/QFile>

#include <xlsxwriter.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace ZYN::Tool {

namespace {

constexpr qsizetype longestText = 32767;
constexpr qsizetype widestColumn = 60;
constexpr qsizetype narrowestColumn = 8;
constexpr qsizetype digitsOfNumber = 12; ///< that a spreadsheet program shows

/// The beginning of a text, not ending in half a character.
QString Shortened(const QString& text)
{
    qsizetype length = longestText;
    if (text.size() > length && text.at(length - 1).isHighSurrogate())
        --length;
    return text.left(length);
}

} // namespace

bool IsWorkbook(const QString& path)
{
    return path.endsWith(QLatin1String(".xlsx"), Qt::CaseInsensitive);
}

void Workbook::Freed::operator()(lxw_workbook* workbook) const
{
    lxw_workbook_free(workbook);
}

Workbook::Workbook(const QString& path, const QString& sheet, const QStringList& titles)
    : m_name(sheet)
    , m_titles(titles)
{
    lxw_workbook_options options = {};
    options.constant_memory = LXW_TRUE;
    m_workbook.reset(workbook_new_opt(QFile::encodeName(path).constData(), &options));
    m_title = workbook_add_format(m_workbook.get());
    format_set_bold(m_title);
    m_bad = workbook_add_format(m_workbook.get());
    format_set_font_color(m_bad, LXW_COLOR_RED);
    BeginSheet();
}

Workbook::~Workbook() = default;

void Workbook::BeginSheet()
{
    const QString name = ++m_sheets == 1 ? m_name : QStringLiteral("%1 (%2)").arg(m_name).arg(m_sheets);
    m_sheet = workbook_add_worksheet(m_workbook.get(), name.toUtf8().constData());
    worksheet_freeze_panes(m_sheet, 1, 0);
    m_widths.clear();
    for (qsizetype i = 0; i < m_titles.size(); ++i) {
        worksheet_write_string(m_sheet, 0, lxw_col_t(i), m_titles.at(i).toUtf8().constData(), m_title);
        m_widths.append(std::max(narrowestColumn, m_titles.at(i).size() + 3)); // and the filter's button
    }
    m_row = 1;
}

void Workbook::EndSheet()
{
    for (qsizetype i = 0; i < m_widths.size(); ++i)
        worksheet_set_column(m_sheet, lxw_col_t(i), lxw_col_t(i), double(m_widths.at(i)), nullptr);
    if (!m_titles.isEmpty())
        worksheet_autofilter(m_sheet, 0, 0, m_row - 1, lxw_col_t(m_titles.size() - 1));
}

void Workbook::Add(const QList<SheetCell>& cells)
{
    if (m_row == LXW_ROW_MAX) {
        EndSheet();
        BeginSheet();
    }
    for (qsizetype i = 0; i < cells.size(); ++i)
        Put(lxw_col_t(i), cells.at(i));
    ++m_row;
}

void Workbook::Put(std::uint16_t column, const SheetCell& cell)
{
    lxw_format* const format = cell.isBad ? m_bad : nullptr;
    qsizetype width = 0;
    if (const double* const number = std::get_if<double>(&cell.value)) {
        // A workbook has no number for these.
        if (!std::isfinite(*number))
            return Put(column,
                       {std::isnan(*number) ? QStringLiteral("nan") : QString::number(*number), cell.isBad});
        worksheet_write_number(m_sheet, m_row, column, *number, format);
        width = digitsOfNumber;
    } else if (const QString* const text = std::get_if<QString>(&cell.value); text && !text->isEmpty()) {
        worksheet_write_string(m_sheet, m_row, column, Shortened(*text).toUtf8().constData(), format);
        width = text->size() + 1;
    }
    m_widths[column] = std::max(m_widths.at(column), std::min(width, widestColumn));
}

std::optional<QString> Workbook::Close()
{
    EndSheet();
    const lxw_error error = workbook_close(m_workbook.release());
    if (error == LXW_NO_ERROR)
        return std::nullopt;
    return QString::fromUtf8(lxw_strerror(error));
}

} // namespace ZYN::Tool
