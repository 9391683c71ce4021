#pragma once

#include <QtTest/QTest>

#include <tuple>

namespace ZYN {

/// The rows of a test function, made in its `_data` function: `const Rows<int, QString> row;` and then
/// `row("name", 1, "text")`. What a row leaves out at its end is zero, false, empty.
template <class... Types>
class Rows {
public:
    Rows() { QTest::addColumn<std::tuple<Types...>>("row"); }

    template <class... Values>
    void operator()(const char* name, const Values&... values) const
    {
        std::tuple<Types...> row;
        const auto assign = [&]<std::size_t... I>(std::index_sequence<I...>)
        {
            ((std::get<I>(row) = values), ...);
        };
        assign(std::index_sequence_for<Values...>());
        QTest::newRow(name) << row;
    }
};

/// The row that a test function runs for: `const auto [number, text] = CurrentRow<int, QString>();`
template <class... Types>
std::tuple<Types...> CurrentRow()
{
    using Row = std::tuple<Types...>;
    QFETCH(Row, row);
    return row;
}

} // namespace ZYN
