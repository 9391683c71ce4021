#include "lots/LotConversion.h"

#include "files/Parallel.h"
#include "lots/LotUnits.h"

#include <ZYNCommon/UUTTest.h>
#include <ZYNPersistence/CExportServiceReport.h>

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QRegularExpression>

namespace ZYN::Tool {

QString ConvertedLotName(const QString& relative)
{
    static const QRegularExpression packed(QStringLiteral("\\.(gz|bz2|xz|zst)$"),
                                           QRegularExpression::CaseInsensitiveOption);
    const QFileInfo name(QString(relative).remove(packed));
    return QDir::cleanPath(name.path() + QLatin1Char('/') + name.completeBaseName());
}

QList<Conversion> ConvertLot(const Input& lot, const QString& folder, const ReportConversion& conversion,
                             int threads)
{
    const QString extension = CExportServiceReport::ExtensionForFormat(conversion.format);
    QList<Conversion> conversions;
    const std::optional<Problem> damage = ForEachUnits(lot, [&](const std::vector<LotUnit>& units) {
        std::vector<Conversion> done(units.size());
        ForEachIndex(qsizetype(units.size()), threads, [&](qsizetype index) {
            const LotUnit& unit = units[size_t(index)];
            const QString output = folder + QLatin1Char('/') + unit.name + QLatin1Char('.') + extension;
            done[size_t(index)] = {lot.name, output,
                                   ConvertTest(unit.test.get(), lot.name, output, conversion)};
        });
        conversions.append(QList<Conversion>(done.begin(), done.end()));
    });
    if (damage) {
        const Conversion damaged{lot.name, folder, damage};
        conversions.append(damaged);
    }
    return conversions;
}

} // namespace ZYN::Tool
