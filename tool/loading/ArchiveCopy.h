#pragma once

#include "loading/RunLoader.h"

namespace ZYN::Tool {

/// Puts the runs of an archive and its names of bins into another one. \param source file or server \return
/// what became of them; with a problem those before it are there. One without a file is that of the other
/// archive
LoadedInput CopyArchive(Archive& archive, const Input& source);

} // namespace ZYN::Tool
