// Import of an XML report, and the checker of its structure. What was read can be written, and what is
// written then is a good report.

#include "FuzzSupport.h"
#include "ReportGenerations.h"

#include <ZYNCommon/UUTTest.h>

using namespace ZYN::Fuzz;

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    const auto test = Imported(Input(data, size));
    RequireStableReport(Report(QStringLiteral("XML"), *test));
    return 0;
}
