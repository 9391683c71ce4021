#pragma once

namespace ZYN::Python {

/// Sees to it that there is an application, which databases and PDF reports need: the program's own, else one
/// without a display, which then is the only one of the process. The locale stays what it was.
void NeedApplication();

} // namespace ZYN::Python
