#include "archive/Arrays.h"

#include <QtCore/QString>

#include <charconv>
#include <cmath>

namespace ZYN {

namespace {

template <typename Number>
void AppendNumber(std::string* out, Number number)
{
    char digits[32];
    const std::to_chars_result end = std::to_chars(digits, digits + sizeof digits, number);
    out->append(digits, end.ptr);
}

// A quoted text. Backslash and control characters are written in a way that both, JSON and arrays of
// PostgreSQL, would read differently: the latter know no \u.
void AppendQuoted(std::string* out, const std::string& text, ArrayStyle style)
{
    static constexpr char hex[] = "0123456789abcdef";
    out->push_back('"');
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\') {
            out->push_back('\\');
            out->push_back(c);
        } else if (byte < 0x20 && style == ArrayStyle::Json) {
            out->append("\\u00");
            out->push_back(hex[byte >> 4]);
            out->push_back(hex[byte & 15]);
        } else {
            out->push_back(c);
        }
    }
    out->push_back('"');
}

void AppendItem(std::string* out, double number, ArrayStyle)
{
    if (number == 0 && std::signbit(number))
        out->append("-0.0"); // "-0" would be an integer, which has no sign at 0
    else
        AppendNumber(out, number);
}

void AppendItem(std::string* out, float number, ArrayStyle)
{
    AppendNumber(out, number);
}

void AppendItem(std::string* out, std::int16_t code, ArrayStyle)
{
    AppendNumber(out, code);
}

void AppendItem(std::string* out, const std::string& text, ArrayStyle style)
{
    AppendQuoted(out, text, style);
}

void AppendItem(std::string* out, bool flag, ArrayStyle style)
{
    if (style == ArrayStyle::Json)
        out->push_back(flag ? '1' : '0');
    else
        out->push_back(flag ? 't' : 'f');
}

template <typename Vector, typename IsNull>
QVariant Join(const Vector& items, ArrayStyle style, const IsNull& isNull)
{
    thread_local std::string out; // keeps its memory from run to run
    out.clear();
    out.push_back(style == ArrayStyle::Json ? '[' : '{');
    for (const auto& item : items) {
        if (out.size() > 1)
            out.push_back(',');
        if (isNull(item))
            out.append(style == ArrayStyle::Json ? "null" : "NULL");
        else
            AppendItem(&out, item, style);
    }
    out.push_back(style == ArrayStyle::Json ? ']' : '}');
    return QString::fromUtf8(out.data(), qsizetype(out.size()));
}

} // namespace

QVariant ArrayOf(const std::vector<double>& numbers, ArrayStyle style)
{
    return Join(numbers, style, [](double number) { return !std::isfinite(number); });
}

QVariant ArrayOf(const std::vector<float>& numbers, ArrayStyle style)
{
    return Join(numbers, style, [](float number) { return !std::isfinite(number); });
}

QVariant ArrayOf(const std::vector<std::int16_t>& codes, ArrayStyle style)
{
    return Join(codes, style, [](std::int16_t code) { return code == Run::NoCode; });
}

QVariant ArrayOf(const std::vector<std::string>& texts, ArrayStyle style)
{
    return Join(texts, style, [](const std::string& text) { return text.empty(); });
}

QVariant ArrayOf(const std::vector<bool>& flags, ArrayStyle style)
{
    return Join(flags, style, [](bool) { return false; });
}

QVariant ObjectOf(const Run::Texts& texts)
{
    if (texts.empty())
        return {};
    std::string out = "{";
    for (const auto& [position, text] : texts) {
        if (out.size() > 1)
            out.push_back(',');
        out.push_back('"');
        AppendNumber(&out, position);
        out.append("\":");
        AppendQuoted(&out, text, ArrayStyle::Json);
    }
    out.push_back('}');
    return QString::fromUtf8(out.data(), qsizetype(out.size()));
}

} // namespace ZYN
