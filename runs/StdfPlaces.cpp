#include "StdfPlaces.h"

namespace ZYN {

namespace {

constexpr int allSites = 255;
/// Places that are remembered; a wafer has fewer. Lots without wafers may have any number of parts.
constexpr std::size_t mostPlaces = 200'000;

} // namespace

void StdfPlaces::Clear()
{
    m_groups.clear();
    m_wafers.clear();
}

void StdfPlaces::BeginWafer(int head, int group, std::string name)
{
    ++m_count;
    if (name.empty())
        name = '#' + std::to_string(m_count);
    m_wafers.insert_or_assign({head, group}, Wafer{std::move(name), {}});
}

void StdfPlaces::EndWafer(int head, int group)
{
    m_wafers.erase({head, group});
}

StdfPlaces::Wafer& StdfPlaces::At(int head, int site)
{
    if (const auto group = m_groups.find({head, site}); group != m_groups.end()) {
        if (const auto wafer = m_wafers.find({head, group->second}); wafer != m_wafers.end())
            return wafer->second;
    }
    return m_wafers[{head, allSites}];
}

const std::string& StdfPlaces::WaferOf(int head, int site)
{
    return At(head, site).name;
}

std::string StdfPlaces::FirstAt(int head, int site, int x, int y, const std::string& serial)
{
    auto& serials = At(head, site).serials;
    const std::uint32_t place = std::uint32_t(x & 0xffff) << 16 | std::uint32_t(y & 0xffff);
    const auto known = serials.find(place);
    if (known != serials.end())
        return known->second;
    if (serials.size() < mostPlaces)
        serials.emplace(place, serial);
    return serial;
}

} // namespace ZYN
