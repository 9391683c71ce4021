#include <ZYNPersistence/CReadServiceTestPlan.h>

#include "ITestPlanReader.h"
#include "TestPlanReaderFactory.h"

#include <ZYNCommon/TestPlan.h>

#include <QtCore/QObject>

#include <memory>

namespace ZYN {

namespace {

TestPlan* Read(const QString& fileName, QString& errorText)
{
    const std::unique_ptr<ITestPlanReader> reader = TestPlanReaderFactory::Create(QStringLiteral("DEFAULT"));
    reader->Open(fileName);
    if (reader->Read())
        return reader->TakeTestPlan();
    errorText = reader->IsOpened()
                    ? reader->GetErrorText()
                    : QObject::tr("Could not open file: %1 (%2)").arg(fileName, reader->GetOpenErrorText());
    return nullptr;
}

/// Nothing may be thrown into the caller's library, also where there is no memory for a text.
QString OutOfMemory(const QString& fileName) noexcept
{
    try {
        return QObject::tr("Not enough memory to read file: %1").arg(fileName);
    } catch (...) {
        return QStringLiteral("Not enough memory to read the file.");
    }
}

} // namespace

CReadServiceTestPlan::CReadServiceTestPlan() = default;
CReadServiceTestPlan::CReadServiceTestPlan(const CReadServiceTestPlan&) = default;
CReadServiceTestPlan::CReadServiceTestPlan(CReadServiceTestPlan&&) noexcept = default;
CReadServiceTestPlan::~CReadServiceTestPlan() = default;
CReadServiceTestPlan& CReadServiceTestPlan::operator=(const CReadServiceTestPlan&) = default;
CReadServiceTestPlan& CReadServiceTestPlan::operator=(CReadServiceTestPlan&&) noexcept = default;

TestPlan* CReadServiceTestPlan::ReadTestPlan(const QString& fileName)
{
    return ReadTestPlan(fileName, nullptr);
}

TestPlan* CReadServiceTestPlan::ReadTestPlan(const QString& fileName, QString* errorText)
{
    QString text;
    TestPlan* plan = nullptr;
    try {
        plan = Read(fileName, text);
    } catch (...) {
        text = OutOfMemory(fileName);
    }
    if (errorText)
        *errorText = text;
    return plan;
}

} // namespace ZYN
