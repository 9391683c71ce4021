#include "ReportRuns.h"

#include "ByteSource.h"
#include "ReportBytes.h"
#include "ReportReader.h"
#include "RunBuilder.h"

#include <expat.h>
#include <memory>

namespace ZYN {

namespace {

constexpr int pieceSize = 64 * 1024;
/// More than a report has in one tag; the report import says the same.
constexpr int mostAttributes = 64;

} // namespace

class [[gnu::visibility("hidden")]] ReportRuns::Private
{
public:
    Private()
        : parser(XML_ParserCreateNS(nullptr, ReportReader::NamespaceMark), &XML_ParserFree)
        , reader(builder)
    {
    }

    /// \param openBytes opens what is read, as often as it is called
    template <class Open>
    std::optional<RunFault> Read(const Open& openBytes, const std::string& source, std::vector<Run>* runs);

private:
    std::optional<RunFault> ReadOnce(ByteSource & bytes, bool keepIndentation);
    void Prepare();
    std::optional<RunFault> FaultHere() const;

    static ReportReader& Reader(void* user)
    {
        return static_cast<Private*>(user)->reader;
    }
    static void StartElement(void* user, const XML_Char* name, const XML_Char** attributes);
    static void EndElement(void* user, const XML_Char* name);
    static void Stop(Private * d);

    std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)> parser;
    RunBuilder builder;
    ReportReader reader;
};

void ReportRuns::Private::Stop(Private* d)
{
    if (d->reader.HasFault())
        XML_StopParser(d->parser.get(), XML_FALSE);
}

void ReportRuns::Private::StartElement(void* user, const XML_Char* name, const XML_Char** attributes)
{
    auto* const self = static_cast<Private*>(user);
    if (XML_GetSpecifiedAttributeCount(self->parser.get()) > 2 * mostAttributes)
        self->reader.SetFault(ReportTexts::CrowdedTag, std::to_string(mostAttributes));
    self->reader.Start(name, attributes);
    Stop(self);
}

void ReportRuns::Private::EndElement(void* user, const XML_Char* name)
{
    auto* const self = static_cast<Private*>(user);
    self->reader.End(name);
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
    XML_SetAttlistDeclHandler(
        p, [](void* user, const XML_Char*, const XML_Char*, const XML_Char*, const XML_Char*, int) {
            auto* const self = static_cast<Private*>(user);
            self->reader.SetFault(ReportTexts::Attributes);
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

/// Columns are right only where indentation is kept, so a report that is refused is read once more.
template <class Open>
std::optional<RunFault> ReportRuns::Private::Read(const Open& openBytes, const std::string& source,
                                                  std::vector<Run>* runs)
{
    std::optional<RunFault> fault;
    for (const bool keepIndentation : {false, true}) {
        ByteSource bytes;
        openBytes(bytes);
        std::optional<RunFault> found = ReadOnce(bytes, keepIndentation);
        const bool hasPlace = found && found->line > 0;
        if (!fault || hasPlace) // else it can be read only once
            fault = std::move(found);
        if (!hasPlace)
            break;
    }
    if (!fault)
        reader.Finish(source, runs);
    return fault;
}

std::optional<RunFault> ReportRuns::Private::ReadOnce(ByteSource& bytes, bool keepIndentation)
{
    if (!parser)
        return RunFault{0, 0, ReportTexts::Filled(ReportTexts::NoMemory)};
    Prepare();
    ReportBytes clean(keepIndentation);
    for (bool isLast = false; !isLast;) {
        auto* const piece = static_cast<char*>(XML_GetBuffer(parser.get(), pieceSize));
        if (!piece)
            return RunFault{0, 0, ReportTexts::Filled(ReportTexts::NoMemory)};
        const std::size_t size = bytes.Read(piece, pieceSize);
        if (!bytes.Error().empty())
            return RunFault{0, 0, bytes.Error()};
        isLast = size == 0;
        const auto left = int(clean.Clean(piece, size));
        if (XML_ParseBuffer(parser.get(), left, isLast) != XML_STATUS_OK)
            return FaultHere();
    }
    return std::nullopt;
}

ReportRuns::ReportRuns()
    : d(std::make_unique<Private>())
{
}

ReportRuns::~ReportRuns() = default;

std::optional<RunFault> ReportRuns::ReadFile(const std::string& path, std::vector<Run>* runs)
{
    return d->Read([&](ByteSource& bytes) { bytes.OpenFile(path); }, path, runs);
}

std::optional<RunFault> ReportRuns::Read(const std::string& bytes, const std::string& source,
                                         std::vector<Run>* runs)
{
    return d->Read([&](ByteSource& opened) { opened.OpenMemory(bytes); }, source, runs);
}

} // namespace ZYN
