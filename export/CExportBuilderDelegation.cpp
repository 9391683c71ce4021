#include "CExportBuilderDelegation.h"

namespace ZYN {

CExportBuilderDelegation::CExportBuilderDelegation(IExportBuilder* builder)
    : m_target(builder)
{
}

CExportBuilderDelegation::~CExportBuilderDelegation()
{
    delete m_target;
}

void CExportBuilderDelegation::SetProperty(const QString& key, const QString& value)
{
    m_target->SetProperty(key, value);
}

void CExportBuilderDelegation::SetDevice(QIODevice* device)
{
    m_target->SetDevice(device);
}

QIODevice* CExportBuilderDelegation::GetDevice()
{
    return m_target->GetDevice();
}

void CExportBuilderDelegation::SetUseScaledData(bool flag)
{
    m_target->SetUseScaledData(flag);
}

bool CExportBuilderDelegation::GetUseScaledData()
{
    return m_target->GetUseScaledData();
}

bool CExportBuilderDelegation::Open()
{
    return m_target->Open();
}

bool CExportBuilderDelegation::Close()
{
    return m_target->Close();
}

bool CExportBuilderDelegation::IsOpened()
{
    return m_target->IsOpened();
}

} // namespace ZYN
