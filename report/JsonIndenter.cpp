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
        depth -= ends ? 1 : 0;
        // What is empty ends on a line of its own too.
        if (ends || lineEnded)
            AddLineBreak();
        Add(place, next - place);
        if (character == ':')
            Add(" ", 1);
        depth += begins ? 1 : 0;
        lineEnded = begins || character == ',';
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
    return complete;
}

void JsonIndenter::AddLineBreak()
{
    constexpr qsizetype blanks = 4;
    const qsizetype size = 1 + blanks * depth;
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
    if (used + size > std::ssize(buffer)) {
        Flush();
        buffer.resize(std::max(buffer.size(), static_cast<size_t>(size)));
    }
    used += size;
    return buffer.data() + used - size;
}

void JsonIndenter::Flush()
{
    complete = complete && device.write(buffer.data(), used) == used;
    used = 0;
}

} // namespace ZYN
