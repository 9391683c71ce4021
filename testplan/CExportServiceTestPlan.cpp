#include <ZYNPersistence/CExportServiceTestPlan.h>

#include "export/CExportDirectorTestPlan.h"
#include "export/CExportServicePrivate.h"
#include "export/FormatRegistry.h"

#include <QtCore/QObject>

namespace ZYN {

class CExportServiceTestPlan_Private : public CExportServicePrivate {};

CExportServiceTestPlan::CExportServiceTestPlan(bool excludeBinIds)
    : d(new CExportServiceTestPlan_Private)
{
    d->SetBuilder(
        [&] { return FormatRegistry::CreateTestPlanBuilder(QStringLiteral("DEFAULT"), excludeBinIds); });
}

CExportServiceTestPlan::~CExportServiceTestPlan()
{
    delete d;
}

void CExportServiceTestPlan::SetOutputFileName(const QString& fileName)
{
    d->fileName = fileName;
}

bool CExportServiceTestPlan::Export(TestProgram* program)
{
    return d->Run([&] {
        CExportDirectorTestPlan director;
        return director.ExportTestPlan(program, d->builder);
    });
}

QString CExportServiceTestPlan::GetErrorText() const
{
    return d->errorText;
}

bool CExportServiceTestPlan::OutputComplete() const
{
    return d->OutputComplete();
}

QString CExportServiceTestPlan::GetOutputError() const
{
    return d->OutputError();
}

QString CExportServiceTestPlan::FileNameFilter()
{
    return QStringLiteral("%1 (*.tpl)").arg(QObject::tr("Testplan File"));
}

} // namespace ZYN
