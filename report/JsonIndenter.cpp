#include "JsonIndenter.h"

#include <algorithm>

namespace ZYN {

namespace {

/// \param text begins with its quotation mark
const char* EndOfText(const char* text)
{
    for (++text; *text != '"'; ++text) {
        if (*text == '\\')
            ++text;
    }
    return text + 1;
}

} // namespace

void JsonIndenter::Write(QByteArrayView compact)
{
    const char* place = compact.begin();
    while (place != compact.end()) {
        const char character = *place;
        const bool begins = character == '[' || character == '{';
        const bool ends = character == ']' || character == '}';
        const char* const next = character == '"' ? EndOfText(place) : place + 1;
        m_depth -= ends ? 1 : 0;
        // What is empty ends on a line of its own too.
        if (ends || m_lineEnded)
            AddLineBreak();
        Add(place, next - place);
        if (character == ':')
            Add(" ", 1);
        m_depth += begins ? 1 : 0;
        m_lineEnded = begins || character == ',';
        place = next;
    }
}

void JsonIndenter::WriteItems(const QByteArrayList& items)
{
    for (qsizetype index = 0; index < items.size(); ++index) {
        if (index > 0)
            Write(",");
        Write(items[index]);
    }
}

bool JsonIndenter::Finish()
{
    Add("\n", 1);
    Flush();
    return m_complete;
}

void JsonIndenter::AddLineBreak()
{
    constexpr qsizetype blanks = 4;
    const qsizetype size = 1 + blanks * m_depth;
    char* const room = Room(size);
    std::fill_n(room, size, ' ');
    *room = '\n';
}

void JsonIndenter::Add(const char* text, qsizetype size)
{
    std::copy_n(text, size, Room(size));
}

/// Lengthens what is buffered by characters that the caller fills.
char* JsonIndenter::Room(qsizetype size)
{
    if (m_used + size > std::ssize(m_buffer)) {
        Flush();
        m_buffer.resize(std::max(m_buffer.size(), static_cast<size_t>(size)));
    }
    m_used += size;
    return m_buffer.data() + m_used - size;
}

void JsonIndenter::Flush()
{
    m_complete = m_complete && m_device.write(m_buffer.data(), m_used) == m_used;
    m_used = 0;
}

} // namespace ZYN
