#include "KnownLayout.h"

#include "Hash.h"

#include <algorithm>
#include <cstring>

namespace ZYN {

namespace {

std::string DigitsOf(const std::string& text)
{
    Hash hash;
    hash.Add(text);
    return QByteArray::fromStdString(hash.Result()).toHex().toStdString();
}

/// A text as part of an identity, in which some characters have a meaning.
void AppendEscaped(std::string& identity, std::string_view text)
{
    for (const char c : text) {
        if (c == '\\' || c == '/' || c == ':' || c == '#')
            identity += '\\';
        identity += c;
    }
}

constexpr std::size_t longestName = 1000;

/// The identity of what stands above a component; a backslash and a letter are in no other one.
std::string IdentityAbove(const std::string& identity)
{
    return identity.size() <= longestName ? identity : "\\h" + DigitsOf(identity);
}

/// An identity without the mark of one that stands twice.
std::string_view WithoutCount(std::string_view identity)
{
    const std::size_t mark = identity.find_last_not_of("0123456789");
    if (mark == std::string_view::npos || mark + 1 == identity.size() || identity[mark] != '#')
        return identity;
    std::size_t escapes = 0;
    while (escapes < mark && identity[mark - 1 - escapes] == '\\')
        ++escapes;
    return escapes % 2 == 0 ? identity.substr(0, mark) : identity;
}

std::string HashOf(const RunLayout& layout)
{
    Hash hash;
    hash.Add(layout.program);
    hash.Add(layout.programIdent);
    hash.Add(layout.version);
    for (const RunComponent& component : layout.components) {
        hash.Add(std::int64_t(component.kind));
        hash.Add(std::int64_t(component.parent));
        hash.Add(component.identity);
        hash.Add(component.path);
        hash.Add(std::int64_t(component.dataType));
        hash.Add(component.unit);
        hash.Add(std::int64_t(component.unitCode));
        hash.Add(std::int64_t(component.factor));
    }
    return hash.Result();
}

int DepthOf(const RunComponent& component)
{
    switch (component.kind) {
    case ComponentKind::Group:
        return 0;
    case ComponentKind::Step:
    case ComponentKind::Parameter:
        return 1;
    case ComponentKind::Measurement:
        return 2;
    }
    return 2;
}

bool MeasureTheSame(const RunComponent& a, const RunComponent& b)
{
    return a.kind == b.kind && a.dataType == b.dataType && a.unitCode == b.unitCode && a.unit == b.unit;
}

} // namespace

std::string Shortened(const std::string& name)
{
    constexpr std::size_t digits = 16;
    std::size_t end = longestName;
    if (name.size() <= end)
        return name;
    while (end > 0 && (static_cast<unsigned char>(name[end]) & 0xC0) == 0x80) // within a character
        --end;
    return name.substr(0, end) + "\u2026" + DigitsOf(name).substr(0, digits);
}

LayoutMaker::LayoutMaker(const RunLayout& layout, const std::vector<std::uint32_t>& positions)
{
    std::unordered_map<int, int> moved;
    components.reserve(positions.size());
    for (const std::uint32_t position : positions) {
        moved[int(position)] = int(components.size());
        RunComponent& component = components.emplace_back(layout.components[position]);
        if (component.parent >= 0)
            component.parent = moved.at(component.parent);
        ++m_count[std::string(WithoutCount(component.identity))];
    }
}

void LayoutMaker::Add(const RunItem& item, int parent)
{
    RunComponent component;
    component.kind = item.kind;
    component.parent = parent;
    component.ident = item.ident;
    component.name = item.name;
    component.dataType = item.dataType;
    component.unit = item.unit;
    component.unitCode = item.unitCode;
    component.factor = item.factor;
    if (parent >= 0) {
        component.identity = IdentityAbove(components[std::size_t(parent)].identity) + '/';
        component.path = Shortened(components[std::size_t(parent)].path) + " / ";
    }
    AppendEscaped(component.identity, item.ident);
    component.identity += ':';
    AppendEscaped(component.identity, item.name);
    component.path += item.name;
    if (const int count = ++m_count[component.identity]; count > 1) {
        const std::string mark = '#' + std::to_string(count);
        component.identity += mark;
        component.path += mark;
    }
    SetHash(&component);
    components.push_back(std::move(component));
}

KnownLayout::KnownLayout(RunLayout made)
{
    made.hash = HashOf(made);
    layout = std::make_shared<const RunLayout>(std::move(made));
    longest = layout->components.size();
    std::unordered_map<std::string_view, int> last;
    previous.reserve(longest);
    for (const RunComponent& component : layout->components) {
        const int place = int(previous.size());
        const auto [at, isFirst] = last.try_emplace(WithoutCount(component.identity), place);
        previous.push_back(isFirst ? -1 : at->second);
        at->second = place;
        m_places.emplace(component.identity, std::uint32_t(place));
    }
}

bool KnownLayout::IsOf(std::string_view program, std::string_view ident, std::string_view version) const
{
    return layout->version == version && layout->program == program && layout->programIdent == ident;
}

bool KnownLayout::IsAt(std::size_t position, const RunItem& item, int parent) const
{
    const RunComponent& known = layout->components[position];
    return known.parent == parent && known.kind == item.kind && known.ident == item.ident &&
           known.name == item.name && known.dataType == item.dataType && known.unitCode == item.unitCode &&
           known.unit == item.unit;
}

std::optional<std::vector<std::uint32_t>>
KnownLayout::PlacesOf(const std::vector<RunComponent>& components) const
{
    std::vector<std::uint32_t> places;
    places.reserve(components.size());
    for (const RunComponent& component : components) {
        const auto at = m_places.find(component.identity);
        if (at == m_places.end() || (!places.empty() && at->second <= places.back()) ||
            !MeasureTheSame(layout->components[at->second], component))
            return std::nullopt;
        places.push_back(at->second);
    }
    return places;
}

std::optional<RunLayout> KnownLayout::With(const std::vector<RunComponent>& components) const
{
    // Names that hold a serial number, say, must not make a layout that grows with every run.
    constexpr std::size_t alwaysGood = 64;
    const std::vector<RunComponent>& known = layout->components;
    const std::size_t bound = 2 * std::max(longest, components.size()) + alwaysGood;

    RunLayout made{layout->program, layout->programIdent, layout->version, {}, {}};
    std::vector<const RunComponent*> order;
    std::size_t next = 0;
    for (const RunComponent& component : components) {
        const auto at = m_places.find(component.identity);
        if (at == m_places.end()) {
            // What the one before holds comes first.
            while (next < known.size() && DepthOf(known[next]) > DepthOf(component))
                order.push_back(&known[next++]);
            order.push_back(&component);
        } else {
            if (at->second < next || !MeasureTheSame(known[at->second], component))
                return std::nullopt;
            while (next <= at->second)
                order.push_back(&known[next++]);
        }
        if (order.size() > bound)
            return std::nullopt;
    }
    while (next < known.size())
        order.push_back(&known[next++]);
    if (order.size() > bound)
        return std::nullopt;

    std::unordered_map<std::string_view, int> places;
    made.components.reserve(order.size());
    for (const RunComponent* const component : order) {
        const bool isKnown = component >= known.data() && component < known.data() + known.size();
        const std::vector<RunComponent>& source = isKnown ? known : components;
        RunComponent& copy = made.components.emplace_back(*component);
        if (component->parent >= 0)
            copy.parent = places.at(source[std::size_t(component->parent)].identity);
        places[component->identity] = int(made.components.size()) - 1;
    }
    return made;
}

} // namespace ZYN
