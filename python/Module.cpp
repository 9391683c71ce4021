#include "Archives.h"
#include "Errors.h"
#include "Reading.h"
#include "Recorder.h"
#include "Runs.h"

PYBIND11_MODULE(_zyn, module)
{
    using namespace ZYN::Python;

    AddErrors(module);
    AddRuns(module);
    AddReading(module);
    AddArchives(module);
    AddRecorder(module);
    module.attr("__version__") = ZYN_VERSION;
}
