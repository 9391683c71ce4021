#pragma once

#include <QtCore/QList>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <memory>
#include <optional>
#include <variant>

struct lxw_workbook;
struct lxw_worksheet;
struct lxw_format;

namespace ZYN::Tool {

/// Whether a file is a workbook, by its extension.
bool IsWorkbook(const QString& path);

/// A cell of a sheet: nothing, a number, or a text that stays one ("2.4.1" is no date).
struct SheetCell {
    std::variant<std::monostate, double, QString> value;
    bool isBad = false; ///< shown in red
};

/// One table as a workbook of a spreadsheet program, written row by row: titles that stay in view and can be
/// filtered, numbers that are numbers in every locale (of 16 digits). What does not fit a sheet (1,048,576
/// rows) goes on in the next one. Memory does not grow with the rows.
class Workbook {
public:
    /// \param path of the file; it is complete after `Close`
    /// \param sheet name of the sheet, at most 25 characters
    Workbook(const QString& path, const QString& sheet, const QStringList& titles);
    /// Gives up what was not closed.
    ~Workbook();
    Workbook(const Workbook&) = delete;
    Workbook& operator=(const Workbook&) = delete;

    /// \param cells one for each title; of a text that is longer than a cell may be (32,767 characters) the
    /// beginning
    void Add(const QList<SheetCell>& cells);
    /// Brings everything into the file.
    /// \return why that failed; nothing when it did not
    std::optional<QString> Close();

private:
    void BeginSheet();
    void EndSheet();
    void Put(std::uint16_t column, const SheetCell& cell);

    struct Freed {
        void operator()(lxw_workbook* workbook) const;
    };

    std::unique_ptr<lxw_workbook, Freed> m_workbook;
    lxw_worksheet* m_sheet = nullptr; ///< of the workbook, like the formats
    lxw_format* m_title = nullptr;
    lxw_format* m_bad = nullptr;
    QString m_name;
    QStringList m_titles;
    QList<qsizetype> m_widths; ///< of the columns, in characters
    std::uint32_t m_row = 0;
    int m_sheets = 0;
};

} // namespace ZYN::Tool
