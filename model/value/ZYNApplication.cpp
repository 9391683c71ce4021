#include <ZYNCommon/ZYNApplication.h>

namespace ZYN {

QString ZYNApplication::GetVersion(ZYNAppType::Type application)
{
    return application == ZYNAppType::TestEngine ? QStringLiteral(ZYN_ENGINE_VERSION) : QString();
}

} // namespace ZYN
