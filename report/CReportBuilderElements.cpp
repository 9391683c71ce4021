#include "CReportBuilderElements.h"

#include "UPrivateXMLWriter.h"

namespace ZYN {

CReportBuilderElements::CReportBuilderElements()
    : m_writer(std::make_unique<UPrivateXMLWriter>())
{
}

CReportBuilderElements::~CReportBuilderElements() = default;

bool CReportBuilderElements::Close()
{
    m_writer->EndDocument();
    CheckOutput(m_writer->Stream());
    SetDevice(nullptr);
    SetOpened(false);
    return true;
}

bool CReportBuilderElements::BeginUnitUnderTest(UnitUnderTest* unit)
{
    if (!unit)
        return false;
    m_writer->WriteUnitUnderTest(unit);
    return true;
}

bool CReportBuilderElements::BeginProductType(ProductType* productType)
{
    if (!productType)
        return false;
    m_writer->WriteProductType(productType);
    return true;
}

bool CReportBuilderElements::BeginSession(ZYNSession* session)
{
    if (!session)
        return false;
    m_writer->WriteTestEnvironment(session);
    return true;
}

} // namespace ZYN
