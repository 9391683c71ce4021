#pragma once

#include <ZYNCommon/ZYNCommonGlobal.h>
#include <ZYNCommon/ZYNTypes.h>

#include <QtCore/QDir>
#include <QtCore/QString>

namespace ZYN {

class ZYNCOMMON_EXPORT ZYNTools {
public:
    /// Where logos lie: the environment variable `ZYN_MEDIA_DIR`, else the installed `share/zyn/media`.
    static QDir GetMediaDir();
    /// "Program", "Group", "Step", "Parameter", "Integer", "Real", "String"; an unknown code as "Type 5".
    static QString AddressToDataTypeString(EN_ZYN_ADDRESS address);
};

} // namespace ZYN
