#include "kinds/WaferMap.h"

#include "terminal/Terminal.h"
#include "terminal/Texts.h"

#include <algorithm>

namespace ZYN::Tool {

namespace {

constexpr int widestMap = 1000;

QChar CharacterOf(int bin)
{
    static const QString characters = QStringLiteral("0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ");
    return bin >= 0 && bin < characters.size() ? characters.at(bin) : QLatin1Char('?');
}

} // namespace

void WaferMap::Add(const ZYN::Run& run)
{
    if (!run.x || !run.y || m_count >= MostDies)
        return;
    m_count += m_wafers[run.wafer].insert_or_assign({*run.y, *run.x}, run.hardBin.value_or(-1)).second;
}

void WaferMap::Print() const
{
    for (const auto& [name, dies] : m_wafers) {
        int left = dies.begin()->first.second;
        int right = left;
        for (const auto& [place, bin] : dies) {
            left = std::min(left, place.second);
            right = std::max(right, place.second);
        }
        const int top = dies.begin()->first.first;
        const int bottom = dies.rbegin()->first.first;
        Tool::Print(QLatin1Char('\n') +
                    Texts::tr("Wafer %1, x %2 to %3, y %4 to %5")
                        .arg(Harmless(QString::fromStdString(name)), QString::number(left),
                             QString::number(right), QString::number(top), QString::number(bottom)) +
                    QLatin1Char('\n'));
        if (right - left >= widestMap || bottom - top >= widestMap) {
            Tool::Print(Texts::tr("is too wide for a map") + QLatin1Char('\n'));
            continue;
        }
        for (int row = top; row <= bottom; ++row) {
            QString line;
            for (int column = left; column <= right; ++column) {
                const auto die = dies.find({row, column});
                line += die == dies.end() ? QLatin1Char('.') : CharacterOf(die->second);
            }
            Tool::Print(line + QLatin1Char('\n'));
        }
    }
}

} // namespace ZYN::Tool
