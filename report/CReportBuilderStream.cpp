#include "CReportBuilderStream.h"

namespace ZYN {

bool CReportBuilderStream::Open()
{
    if (!BindStream(m_stream))
        return false;
    SetOpened(true);
    return true;
}

bool CReportBuilderStream::Close()
{
    CheckOutput(m_stream);
    // The stream outlives the device, and must not touch it again.
    m_stream.setDevice(nullptr);
    SetDevice(nullptr);
    SetOpened(false);
    return true;
}

} // namespace ZYN
