#pragma once

#include "runs/Run.h"

#include <QtCore/QByteArray>

#include <array>
#include <string>
#include <unordered_map>

namespace ZYN {

/// Which run it is, and what it says. Both are SHA-256, 32 bytes.
struct RunDigest {
    QByteArray key;
    QByteArray content;
};

/// Tells runs apart: the key is the same for two accounts of one run, the content only where they say the
/// same. What components a run lacks, and so which layout it shares, plays no part in its content; neither
/// does the file that it was read from.
class RunDigester {
public:
    RunDigest Digest(const Run& run);

private:
    using Half = std::array<char, 16>; // of a SHA-256
    const std::vector<Half>& Components(const Run& run);

    // What never changes from run to run is digested once: by layout and limits, for each position.
    std::unordered_map<std::string, std::vector<Half>> m_components;
    std::string m_buffer;
};

} // namespace ZYN
