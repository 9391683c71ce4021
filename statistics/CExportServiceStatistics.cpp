#include <ZYNPersistence/CExportServiceStatistics.h>

#include "export/CExportDirectorBase.h"
#include "export/CExportServicePrivate.h"
#include "export/FormatRegistry.h"
#include "export/IExportBuilder.h"

#include <QtCore/QObject>

#include <optional>

namespace ZYN {

class CExportServiceStatistics_Private : public CExportServicePrivate {
public:
    std::optional<bool> useScaledData;
};

CExportServiceStatistics::CExportServiceStatistics()
    : d(new CExportServiceStatistics_Private)
{
}

CExportServiceStatistics::~CExportServiceStatistics()
{
    delete d;
}

bool CExportServiceStatistics::SetFormat(const QString& format)
{
    return d->SetBuilder([&] { return FormatRegistry::CreateStatisticsBuilder(format); });
}

bool CExportServiceStatistics::FormatOk() const
{
    return d->builder != nullptr;
}

QString CExportServiceStatistics::FormatForExtension(const QString& fileName)
{
    return FormatRegistry::FormatForExtension(fileName);
}

void CExportServiceStatistics::SetOutputFileName(const QString& fileName)
{
    d->fileName = fileName;
}

void CExportServiceStatistics::SetUseScaledData(bool flag)
{
    d->useScaledData = flag;
}

bool CExportServiceStatistics::Export(StatisticsDataReport* report)
{
    return d->Run([&] {
        if (d->useScaledData)
            d->builder->SetUseScaledData(*d->useScaledData);
        return CExportDirectorBase::ExportStatistics(report, d->builder);
    });
}

QString CExportServiceStatistics::GetErrorText() const
{
    return d->errorText;
}

bool CExportServiceStatistics::OutputComplete() const
{
    return d->OutputComplete();
}

QString CExportServiceStatistics::GetOutputError() const
{
    return d->OutputError();
}

QString CExportServiceStatistics::FileNameFilter()
{
    return QStringLiteral("CSV %1 (*.csv);;XML %1 (*.xml)").arg(QObject::tr("File"));
}

} // namespace ZYN
