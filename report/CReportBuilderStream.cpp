#include "CReportBuilderStream.h"

namespace ZYN {

bool CReportBuilderStream::Open()
{
    if (!BindStream(stream))
        return false;
    SetOpened(true);
    return true;
}

bool CReportBuilderStream::Close()
{
    CheckOutput(stream);
    // The stream outlives the device, and must not touch it again.
    stream.setDevice(nullptr);
    SetDevice(nullptr);
    SetOpened(false);
    return true;
}

} // namespace ZYN
