#include "CExportBuilderDelegation.h"

namespace ZYN {

CExportBuilderDelegation::CExportBuilderDelegation(IExportBuilder* builder)
    : target(builder)
{
}

CExportBuilderDelegation::~CExportBuilderDelegation()
{
    delete target;
}

void CExportBuilderDelegation::SetProperty(const QString& key, const QString& value)
{
    target->SetProperty(key, value);
}

void CExportBuilderDelegation::SetDevice(QIODevice* device)
{
    target->SetDevice(device);
}

QIODevice* CExportBuilderDelegation::GetDevice()
{
    return target->GetDevice();
}

void CExportBuilderDelegation::SetUseScaledData(bool flag)
{
    target->SetUseScaledData(flag);
}

bool CExportBuilderDelegation::GetUseScaledData()
{
    return target->GetUseScaledData();
}

bool CExportBuilderDelegation::Open()
{
    return target->Open();
}

bool CExportBuilderDelegation::Close()
{
    return target->Close();
}

bool CExportBuilderDelegation::IsOpened()
{
    return target->IsOpened();
}

} // namespace ZYN
