#include "kinds/FileKind.h"

#include "kinds/BinningFile.h"
#include "kinds/LotFile.h"
#include "kinds/ReportCheck.h"
#include "kinds/ReportFile.h"
#include "kinds/ReportJson.h"
#include "kinds/ReportTree.h"
#include "kinds/TestPlanFile.h"
#include "terminal/Texts.h"

#include "lotfile/LotContents.h"
#include "runs/files/FolderFiles.h"
#include "stdf/GzipDevice.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>

#include <algorithm>

namespace ZYN::Tool {

const QList<FileKind>& FileKinds()
{
    static const QList<FileKind> kinds{
        {QT_TRANSLATE_NOOP("zyn", "XML report"), ReportExtensions(), LooksLikeReport, ShowReport,
         ReportToJson, CheckReport},
        {QT_TRANSLATE_NOOP("zyn", "STDF file"), LotExtensions(), LooksLikeLot, ShowLot, nullptr, CheckLot,
         PrintLotJson},
        {QT_TRANSLATE_NOOP("zyn", "test plan"),
         {QStringLiteral("tpl")},
         LooksLikeTestPlan,
         ShowTestPlan,
         TestPlanToJson,
         CheckTestPlan},
        {QT_TRANSLATE_NOOP("zyn", "binning definition"),
         {QStringLiteral("ini")},
         LooksLikeBinning,
         ShowBinning,
         BinningToJson,
         CheckBinning},
    };
    return kinds;
}

bool FileKind::MayBeCompressed() const
{
    return std::any_of(extensions.begin(), extensions.end(),
                       [](const QString& extension) { return extension.endsWith(QLatin1String(".gz")); });
}

const FileKind* KindOf(const QString& path, const QString& name, std::optional<Problem>* problem)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        *problem = Problem{name, 0, Texts::tr("cannot be read: %1").arg(file.errorString()), {}};
        return nullptr;
    }
    constexpr qint64 headSize = 4096;
    const bool isCompressed = Stdf::GzipDevice::IsGzip(file.peek(Stdf::GzipDevice::MarkSize));
    const QByteArray head = isCompressed ? Stdf::GzipDevice(&file).read(headSize) : file.read(headSize);
    for (const FileKind& kind : FileKinds())
        if (kind.recognises(head) && (!isCompressed || kind.MayBeCompressed()))
            return &kind;
    // A damaged file: what its name says.
    for (const FileKind& kind : FileKinds())
        for (const QString& extension : kind.extensions)
            if (name.endsWith(QLatin1Char('.') + extension))
                return &kind;
    QStringList names;
    for (const FileKind& kind : FileKinds())
        names.append(Texts::tr(kind.name));
    *problem = Problem{name, 0, Texts::tr("is of no known kind"),
                       Texts::tr("known are: %1").arg(names.join(QLatin1String(", ")))};
    return nullptr;
}

QStringList KnownExtensions()
{
    QStringList extensions;
    for (const FileKind& kind : FileKinds())
        extensions += kind.extensions;
    return extensions;
}

} // namespace ZYN::Tool
