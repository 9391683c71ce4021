#pragma once

#include <ZYNCommon/ZYNAppType.h>
#include <ZYNCommon/ZYNCommonGlobal.h>

#include <QtCore/QString>

namespace ZYN {

class ZYNCOMMON_EXPORT ZYNApplication {
public:
    /// Version of an application of the test system; empty for an unknown one. Any thread.
    static QString GetVersion(ZYNAppType::Type application);
};

} // namespace ZYN
