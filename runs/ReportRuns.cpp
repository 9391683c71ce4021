#include "ReportRuns.h"

#include "ByteSource.h"
#include "ReportReader.h"
#include "RunBuilder.h"

#include <algorithm>
#include <cstring>
#include <expat.h>
#include <memory>

namespace ZYN {

namespace {

constexpr int pieceSize = 64 * 1024;
/// Between the name of a namespace and that of an element or attribute in it.
constexpr XML_Char namespaceMark = '\n';

/// Bytes of a document as its parser wants them: without the control character 0x12, which some testers let
/// through from a bar code and for which a parser rejects the whole document.
class CleanBytes {
public:
    /// \return how many are left
    std::size_t Clean(char* bytes, std::size_t size)
    {
        if (m_isFirst && size >= 2) {
            const auto first = static_cast<unsigned char>(bytes[0]);
            const auto second = static_cast<unsigned char>(bytes[1]);
            m_isFirst = false;
            m_isWide =
                (first == 0xff && second == 0xfe) || (first == 0xfe && second == 0xff) || !first || !second;
        }
        // In UTF-16 the byte is half of some letter.
        if (m_isWide || !std::memchr(bytes, stray, size))
            return size;
        return std::size_t(std::remove(bytes, bytes + size, stray) - bytes);
    }

private:
    static constexpr char stray = 0x12;
    bool m_isFirst = true;
    bool m_isWide = false;
};

} // namespace

class ReportRuns::Private {
public:
    Private()
        : parser(XML_ParserCreateNS(nullptr, namespaceMark), &XML_ParserFree)
        , reader(builder)
    {
    }

    std::optional<RunFault> Read(ByteSource& bytes, const std::string& source, std::vector<Run>* runs);

private:
    void Prepare();
    std::optional<RunFault> FaultHere() const;

    static ReportReader& Reader(void* user) { return static_cast<Private*>(user)->reader; }
    static void StartElement(void* user, const XML_Char* name, const XML_Char** attributes);
    static void EndElement(void* user, const XML_Char* name);
    static void Stop(Private* d);

    std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)> parser;
    RunBuilder builder;
    ReportReader reader;
};

namespace {

/// A name without the namespace that it is in.
std::string_view LocalName(std::string_view name)
{
    const std::size_t mark = name.rfind(namespaceMark);
    return mark == std::string_view::npos ? name : name.substr(mark + 1);
}

} // namespace

void ReportRuns::Private::Stop(Private* d)
{
    if (d->reader.HasFault())
        XML_StopParser(d->parser.get(), XML_FALSE);
}

void ReportRuns::Private::StartElement(void* user, const XML_Char* name, const XML_Char** attributes)
{
    auto* const self = static_cast<Private*>(user);
    self->reader.Start(LocalName(name), attributes);
    Stop(self);
}

void ReportRuns::Private::EndElement(void* user, const XML_Char* name)
{
    auto* const self = static_cast<Private*>(user);
    self->reader.End(LocalName(name));
    Stop(self);
}

void ReportRuns::Private::Prepare()
{
    XML_Parser const p = parser.get();
    XML_ParserReset(p, nullptr);
    XML_SetUserData(p, this);
    XML_SetElementHandler(p, &StartElement, &EndElement);
    XML_SetCharacterDataHandler(p, [](void* user, const XML_Char* text, int size) {
        auto* const self = static_cast<Private*>(user);
        self->reader.Text({text, std::size_t(size)});
        Stop(self);
    });
    XML_SetCommentHandler(p, [](void* user, const XML_Char*) { Reader(user).Divide(); });
    XML_SetProcessingInstructionHandler(
        p, [](void* user, const XML_Char*, const XML_Char*) { Reader(user).Divide(); });
    XML_SetCdataSectionHandler(
        p, [](void* user) { Reader(user).StartSection(); }, [](void* user) { Reader(user).Divide(); });
    // A few kilobytes of entities grow to many megabytes, and a report needs none.
    XML_SetEntityDeclHandler(p, [](void* user, const XML_Char*, int, const XML_Char*, int, const XML_Char*,
                                   const XML_Char*, const XML_Char*, const XML_Char*) {
        auto* const self = static_cast<Private*>(user);
        self->reader.SetFault(ReportTexts::Entities);
        Stop(self);
    });
    XML_SetSkippedEntityHandler(p, [](void* user, const XML_Char* name, int) {
        auto* const self = static_cast<Private*>(user);
        self->reader.SetFault(ReportTexts::UnknownEntity, name);
        Stop(self);
    });
    reader.Begin();
}

std::optional<RunFault> ReportRuns::Private::FaultHere() const
{
    XML_Parser const p = parser.get();
    RunFault fault;
    fault.line = std::int64_t(XML_GetCurrentLineNumber(p));
    fault.column = std::int64_t(XML_GetCurrentColumnNumber(p)) + 1;
    fault.text = reader.HasFault()
                     ? reader.Fault()
                     : ReportTexts::Filled(ReportTexts::NoXml, XML_ErrorString(XML_GetErrorCode(p)));
    return fault;
}

std::optional<RunFault> ReportRuns::Private::Read(ByteSource& bytes, const std::string& source,
                                                  std::vector<Run>* runs)
{
    const auto noMemory = [] { return RunFault{0, 0, ReportTexts::Filled(ReportTexts::NoMemory)}; };
    if (!parser)
        return noMemory();
    Prepare();
    CleanBytes clean;
    for (bool isLast = false; !isLast;) {
        auto* const piece = static_cast<char*>(XML_GetBuffer(parser.get(), pieceSize));
        if (!piece)
            return noMemory();
        const std::size_t size = bytes.Read(piece, pieceSize);
        if (!bytes.Error().empty())
            return RunFault{0, 0, bytes.Error()};
        isLast = size == 0;
        const auto left = int(clean.Clean(piece, size));
        if (XML_ParseBuffer(parser.get(), left, isLast) != XML_STATUS_OK)
            return FaultHere();
    }
    reader.Finish(source, runs);
    return std::nullopt;
}

ReportRuns::ReportRuns()
    : d(std::make_unique<Private>())
{
}

ReportRuns::~ReportRuns() = default;

std::optional<RunFault> ReportRuns::ReadFile(const std::string& path, std::vector<Run>* runs)
{
    ByteSource bytes;
    if (!bytes.OpenFile(path))
        return RunFault{0, 0, bytes.Error()};
    return d->Read(bytes, path, runs);
}

std::optional<RunFault> ReportRuns::Read(const std::string& text, const std::string& source,
                                         std::vector<Run>* runs)
{
    ByteSource bytes;
    bytes.OpenMemory(text);
    return d->Read(bytes, source, runs);
}

} // namespace ZYN
