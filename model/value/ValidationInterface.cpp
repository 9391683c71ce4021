#include <ZYNCommon/ValidationInterface.h>

namespace ZYN {

ValidationInterface::~ValidationInterface() = default;

} // namespace ZYN
