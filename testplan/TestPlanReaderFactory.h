#pragma once

#include <QtCore/QString>

#include <memory>

namespace ZYN {

class ITestPlanReader;

namespace TestPlanReaderFactory {

/// The reader for a format of test plans; there is one, whatever the name.
std::unique_ptr<ITestPlanReader> Create(const QString& format);

} // namespace TestPlanReaderFactory

} // namespace ZYN
