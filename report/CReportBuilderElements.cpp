#include "CReportBuilderElements.h"

#include "UPrivateXMLWriter.h"

namespace ZYN {

CReportBuilderElements::CReportBuilderElements()
    : writer(std::make_unique<UPrivateXMLWriter>())
{
}

CReportBuilderElements::~CReportBuilderElements() = default;

bool CReportBuilderElements::Close()
{
    writer->EndDocument();
    CheckOutput(writer->Stream());
    SetDevice(nullptr);
    SetOpened(false);
    return true;
}

bool CReportBuilderElements::BeginUnitUnderTest(UnitUnderTest* unit)
{
    if (!unit)
        return false;
    writer->WriteUnitUnderTest(unit);
    return true;
}

bool CReportBuilderElements::BeginProductType(ProductType* productType)
{
    if (!productType)
        return false;
    writer->WriteProductType(productType);
    return true;
}

bool CReportBuilderElements::BeginSession(ZYNSession* session)
{
    if (!session)
        return false;
    writer->WriteTestEnvironment(session);
    return true;
}

} // namespace ZYN
