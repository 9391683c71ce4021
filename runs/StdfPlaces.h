#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <unordered_map>
#include <utility>

namespace ZYN {

/// Where parts are: which wafer is on a head, and which part was at a place of it before.
class StdfPlaces {
public:
    void Clear();
    /// SDR: a site belongs to a group.
    void SetGroup(int head, int group, int site) { m_groups[{head, site}] = group; }
    /// WIR: a wafer begins; one without a name is called by its number in the file, "#2".
    void BeginWafer(int head, int group, std::string name);
    /// WRR: it ends.
    void EndWafer(int head, int group);
    /// The wafer that a site works on; empty for none.
    const std::string& WaferOf(int head, int site);
    /// The serial of the part that was at the place of the wafer first; `serial` where there was none.
    std::string FirstAt(int head, int site, int x, int y, const std::string& serial);

private:
    struct Wafer {
        std::string name;
        std::unordered_map<std::uint32_t, std::string> serials; ///< by x and y
    };
    Wafer& At(int head, int site);

    int m_count = 0;
    std::map<std::pair<int, int>, int> m_groups;   ///< by head and site
    std::map<std::pair<int, int>, Wafer> m_wafers; ///< by head and group
};

} // namespace ZYN
