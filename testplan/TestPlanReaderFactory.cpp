#include "TestPlanReaderFactory.h"

#include "CTestPlanReaderXML.h"

namespace ZYN::TestPlanReaderFactory {

std::unique_ptr<ITestPlanReader> Create(const QString&)
{
    return std::make_unique<CTestPlanReaderXML>();
}

} // namespace ZYN::TestPlanReaderFactory
