#include "JsonPrinter.h"

#include "FieldWalk.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>

#include <algorithm>
#include <charconv>
#include <cmath>

namespace ZYN::Stdf {

namespace {

/// A text of the program's own.
QByteArray Quoted(const QString& text)
{
    // Escapes as the JSON writer does; the brackets around the only element are taken off.
    const QByteArray array = QJsonDocument(QJsonArray{text}).toJson(QJsonDocument::Compact);
    return array.sliced(1, array.size() - 2);
}

/// Writes the values of a record.
class JsonSink {
public:
    explicit JsonSink(std::string& to)
        : line(to)
    {
    }

    void Begin(const FieldType& field)
    {
        before = line.size();
        line += ",\"";
        line += field.name;
        line += "\":";
    }
    void Drop()
    {
        line.resize(before);
        inArray = false;
    }
    void BeginArray()
    {
        line += '[';
        inArray = isFirst = true;
    }
    void EndArray()
    {
        line += ']';
        inArray = false;
    }
    void Unsigned(uint number) { Number(number); }
    void Signed(int number) { Number(number); }
    void Real(float number) { RealNumber(number); }
    void Real(double number) { RealNumber(number); }
    void Nothing()
    {
        Separate();
        line += "null";
    }
    void Text(QByteArrayView latin1)
    {
        Separate();
        line += '"';
        if (std::none_of(latin1.begin(), latin1.end(), &IsSpecial))
            line.append(latin1.data(), std::size_t(latin1.size()));
        else
            for (const char c : latin1)
                Character(c);
        line += '"';
    }
    void Bytes(QByteArrayView bytes)
    {
        Separate();
        line += '"';
        Hex(bytes);
        line += '"';
    }
    void Bits(const char* data, int count)
    {
        Separate();
        line += '"';
        for (int bit = 0; bit < count; ++bit)
            line += (data[bit / 8] >> (bit % 8) & 1) != 0 ? '1' : '0';
        line += '"';
    }

    void Hex(QByteArrayView bytes)
    {
        for (const char c : bytes) {
            line += hexDigits[static_cast<quint8>(c) >> 4];
            line += hexDigits[static_cast<quint8>(c) & 0x0f];
        }
    }
    template <class Type>
    void Digits(Type number)
    {
        char digits[32];
        line.append(digits, std::to_chars(std::begin(digits), std::end(digits), number).ptr);
    }

private:
    static constexpr char hexDigits[] = "0123456789abcdef";

    static bool IsSpecial(char c)
    {
        const auto code = static_cast<quint8>(c);
        return code < 0x20 || code >= 0x7f || c == '"' || c == '\\';
    }

    void Character(char c)
    {
        static constexpr std::string_view named = "\"\\\b\f\n\r\t";
        const auto code = static_cast<quint8>(c);
        if (const std::size_t at = named.find(c); at != named.npos) {
            line += '\\';
            line += "\"\\bfnrt"[at];
        } else if (code < 0x20 || (code >= 0x7f && code < 0xa0)) {
            line += "\\u00";
            Hex({&c, 1});
        } else if (code < 0x80) {
            line += c;
        } else {
            line += static_cast<char>(0xc0 | code >> 6);
            line += static_cast<char>(0x80 | (code & 0x3f));
        }
    }
    template <class Whole>
    void Number(Whole number)
    {
        Separate();
        Digits(number);
    }
    template <class Type>
    void RealNumber(Type number)
    {
        Separate();
        if (std::isfinite(number))
            Digits(number);
        else
            line += std::isnan(number) ? "\"nan\"" : number < 0 ? "\"-inf\"" : "\"inf\"";
    }
    void Separate()
    {
        if (inArray && !isFirst)
            line += ',';
        isFirst = false;
    }

    std::string& line;
    std::size_t before = 0;
    bool inArray = false;
    bool isFirst = true;
};

} // namespace

std::optional<Fault> AppendJson(std::string& line, const RawRecord& raw, bool bigEndian)
{
    JsonSink sink(line);
    line += "\"offset\":";
    sink.Digits(raw.offset);
    const RecordType* const type = FindRecordType(raw.type, raw.subType);
    if (!type) {
        line += ",\"record\":\"unknown\",\"REC_TYP\":";
        sink.Digits(raw.type);
        line += ",\"REC_SUB\":";
        sink.Digits(raw.subType);
        line += ",\"data\":\"";
        sink.Hex(raw.body);
        line += "\"}";
        return std::nullopt;
    }
    line += ",\"record\":\"";
    line += type->name;
    line += '"';
    const LengthFault fault = WalkFields(*type, raw.body, bigEndian, sink);
    if (fault.kind == LengthFault::None) {
        line += '}';
        return std::nullopt;
    }
    const QString text = Text(fault);
    line += ",\"problem\":" + Quoted(text).toStdString() + '}';
    return DamageOf(raw.offset, *type, text);
}

QByteArray ToJsonLine(const RawRecord& raw, bool bigEndian)
{
    std::string line = "{";
    AppendJson(line, raw, bigEndian);
    return QByteArray::fromStdString(line);
}

QByteArray ToJsonLine(const Fault& fault)
{
    return "{\"offset\":" + QByteArray::number(fault.offset) + ",\"error\":" + Quoted(fault.text) + '}';
}

} // namespace ZYN::Stdf
