// Adds units to a lot file until it is killed: the victim of StdfKillTest. Says "ready" when it begins and
// the idents of every panel whose export was complete.

#include "LotModels.h"

#include <cstdio>

int main(int argc, char** argv)
{
    if (argc != 3)
        return 2;
    const QString lot = QString::fromLocal8Bit(argv[1]);
    const QString prefix = QString::fromLocal8Bit(argv[2]);
    // Each item of a panel is a part that is written when it is done, so that a kill comes between parts, and
    // large enough to be written at once, so that it comes inside one.
    auto panel = ZYN::LotModels::SimpleUnit(QString(), 300);
    panel.items.fill(panel, 7);
    std::puts("ready");
    std::fflush(stdout);
    for (int number = 1;; ++number) {
        panel.ident = prefix + QString::number(number);
        QString idents = panel.ident;
        for (qsizetype item = 0; item < panel.items.size(); ++item) {
            panel.items[item].ident = QStringLiteral("%1.%2").arg(panel.ident).arg(item);
            idents += u'\n' + panel.items[item].ident;
        }
        if (!ZYN::LotModels::Append(panel, lot))
            return 1;
        std::puts(qPrintable(idents));
        std::fflush(stdout);
    }
}
