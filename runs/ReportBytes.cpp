#include "ReportBytes.h"

#include <algorithm>
#include <cstring>

namespace ZYN {

namespace {

const char* Find(const char* from, const char* end, char c)
{
    const void* const found = from < end ? std::memchr(from, c, std::size_t(end - from)) : nullptr;
    return found ? static_cast<const char*>(found) : end;
}

const char* BehindBlanks(const char* from, const char* end)
{
    static constexpr char blanks[] = "        ";
    constexpr std::size_t count = sizeof blanks - 1;
    while (std::size_t(end - from) >= count && std::memcmp(from, blanks, count) == 0)
        from += count;
    while (from != end && *from == ' ')
        ++from;
    return from;
}

/// Whether an element ends in front of a line feed.
bool IsEndOfElement(const char* begin, const char* lineFeed)
{
    constexpr std::ptrdiff_t shortest = 4; // "<a/>"
    if (lineFeed - begin < shortest || lineFeed[-1] != '>')
        return false;
    if (lineFeed[-2] == '/')
        return true;
    const void* const tag = memrchr(begin, '<', std::size_t(lineFeed - begin));
    return tag && static_cast<const char*>(tag)[1] == '/';
}

} // namespace

std::size_t ReportBytes::Clean(char* bytes, std::size_t size)
{
    if (m_isFirst && size >= 2) {
        const auto first = static_cast<unsigned char>(bytes[0]);
        const auto second = static_cast<unsigned char>(bytes[1]);
        m_isFirst = false;
        m_isWide =
            (first == 0xff && second == 0xfe) || (first == 0xfe && second == 0xff) || !first || !second;
    }
    if (m_isWide || size == 0)
        return size;
    size = RemoveStray(bytes, size);
    m_keepsIndentation = m_keepsIndentation || HasDeclaration(bytes, size);
    m_last = size > 0 ? bytes[size - 1] : m_last;
    return m_keepsIndentation ? size : RemoveIndentation(bytes, size);
}

std::size_t ReportBytes::RemoveStray(char* bytes, std::size_t size) const
{
    constexpr char stray = 0x12;
    if (!std::memchr(bytes, stray, size))
        return size;
    return std::size_t(std::remove(bytes, bytes + size, stray) - bytes);
}

/// Whether a comment, a section or a document type begins, in which a text may look like elements.
bool ReportBytes::HasDeclaration(const char* bytes, std::size_t size) const
{
    const char* const end = bytes + size;
    for (const char* mark = Find(bytes, end, '!'); mark != end; mark = Find(mark + 1, end, '!')) {
        if ((mark > bytes ? mark[-1] : m_last) == '<')
            return true;
    }
    return false;
}

std::size_t ReportBytes::RemoveIndentation(char* bytes, std::size_t size) const
{
    const char* const end = bytes + size;
    const char* from = bytes; // what was not copied yet
    char* to = bytes;
    const auto copyUpTo = [&](const char* place) {
        std::memmove(to, from, std::size_t(place - from));
        to += place - from;
        from = place;
    };
    for (const char* lineFeed = Find(bytes, end, '\n'); lineFeed != end; lineFeed = Find(from, end, '\n')) {
        const char* behind = lineFeed + 1;
        const bool isEnd = IsEndOfElement(from, lineFeed);
        copyUpTo(behind);
        behind = BehindBlanks(behind, end);
        if (isEnd && behind != end && *behind == '<')
            from = behind;
    }
    copyUpTo(end);
    return std::size_t(to - bytes);
}

} // namespace ZYN
