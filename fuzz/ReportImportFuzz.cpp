// Import of an XML report, and the checker of its structure. What was read can be written, and what is
// written then is a good report.

#include "FuzzSupport.h"
#include "ReportGenerations.h"

#include "kinds/ReportStructure.h"

#include <ZYNCommon/UUTTest.h>

using namespace ZYN;
using namespace ZYN::Fuzz;

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    const QByteArray document = Input(data, size);
    for (const ImportFinding& fault : Tool::ReportStructure::Findings(document))
        Require(fault.line > 0 && fault.column > 0 && !fault.text.isEmpty(),
                "a fault has a text and a place");
    const Reading reading = Imported(document);
    RequireStableReport(Report(QStringLiteral("XML"), *reading.test), reading.errors);
    return 0;
}
