#pragma once

#include "terminal/Terminal.h"

#include <QtCore/QList>
#include <QtCore/QString>

namespace ZYN::Tool {

struct TableColumn {
    enum class Side { Left, Right };
    QString title;
    Side side = Side::Left;
    /// Gives way where the terminal is too narrow: its texts lose their beginning, as the end of a path tells
    /// most.
    bool shrinks = false;
    /// Is left out where the terminal is still too narrow, the last such column first.
    bool drops = false;
};

struct TableCell {
    TableCell(const QString& cellText = {},
              Style cellStyle = Style::Plain) // NOLINT(google-explicit-constructor)
        : text(cellText)
        , style(cellStyle)
    {
    }
    QString text; ///< harmless
    Style style;
};

/// Rows under titles, aligned, as wide as the terminal at most; in a file or a pipe as wide as they are.
/// Columns without any text are left out.
class Table {
public:
    explicit Table(const QList<TableColumn>& columns)
        : m_columns(columns)
    {
    }

    /// \param cells one for each column
    void Add(const QList<TableCell>& cells) { m_rows.append(cells); }
    void Print() const;

private:
    QList<int> FullWidths() const;
    QList<int> Widths() const;
    QString Line(const QList<TableCell>& cells, const QList<int>& widths) const;

    QList<TableColumn> m_columns;
    QList<QList<TableCell>> m_rows;
};

} // namespace ZYN::Tool
