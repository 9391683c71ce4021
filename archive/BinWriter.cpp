#include "archive/BinWriter.h"

#include "archive/SqlValue.h"

#include <set>
#include <tuple>

namespace ZYN {

namespace {

const QString insertBin =
    QStringLiteral("INSERT INTO bin(product, lot, program, is_soft, number, name, verdict) "
                   "VALUES(?, ?, ?, ?, ?, ?, ?) ON CONFLICT DO NOTHING");

} // namespace

bool AddBinNames(Database& database, std::span<const LotBin> bins)
{
    // Sorted: two that add the same names do not wait for each other.
    std::set<std::tuple<std::string, std::string, std::string, int, int, std::string, std::string>> rows;
    for (const LotBin& bin : bins) {
        const bool hasVerdict = bin.verdict == 'P' || bin.verdict == 'F';
        if (!bin.name.empty())
            rows.emplace(bin.product, bin.lot, bin.program, int(bin.isSoft), bin.number, bin.name,
                         hasVerdict ? std::string(1, bin.verdict) : std::string());
    }
    if (rows.empty())
        return true;
    QSqlQuery insert = database.Prepare(insertBin);
    return database.InTransaction([&] {
        for (const auto& [product, lot, program, isSoft, number, name, verdict] : rows) {
            for (const std::string* text : {&product, &lot, &program})
                insert.addBindValue(SqlText(*text));
            insert.addBindValue(isSoft);
            insert.addBindValue(number);
            for (const std::string* text : {&name, &verdict})
                insert.addBindValue(SqlText(*text));
            if (!database.Run(insert))
                return false;
        }
        return true;
    });
}

} // namespace ZYN
