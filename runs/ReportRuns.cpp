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

class [[gnu::visibility("hidden")]] ReportRuns_Private
{
public:
    ReportRuns_Private()
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

    /// What a callback of the parser does. The parser is no C++: nothing may be thrown through it.
    template <class Work>
    static void Do(void* user, const Work& work) noexcept;

    std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)> parser;
    RunBuilder builder;
    ReportReader reader;
    bool isOutOfMemory = false;
};

template <class Work>
void ReportRuns_Private::Do(void* user, const Work& work) noexcept
{
    auto* const self = static_cast<ReportRuns_Private*>(user);
    try {
        work(self->reader);
    } catch (...) {
        self->isOutOfMemory = true;
    }
    if (self->isOutOfMemory || self->reader.HasFault())
        XML_StopParser(self->parser.get(), XML_FALSE);
}

void ReportRuns_Private::Prepare()
{
    using Name = const XML_Char*;
    XML_Parser const p = parser.get();
    XML_ParserReset(p, nullptr);
    XML_SetUserData(p, this);
    XML_SetStartElementHandler(p, [](void* user, Name name, Name* attributes) {
        const int count =
            XML_GetSpecifiedAttributeCount(static_cast<ReportRuns_Private*>(user)->parser.get());
        Do(user, [&](ReportReader& to) {
            if (count > 2 * mostAttributes)
                to.SetFault(ReportTexts::crowdedTag, std::to_string(mostAttributes));
            to.Start(name, attributes);
        });
    });
    XML_SetEndElementHandler(
        p, [](void* user, Name name) { Do(user, [&](ReportReader& to) { to.End(name); }); });
    XML_SetCharacterDataHandler(p, [](void* user, Name text, int size) {
        Do(user, [&](ReportReader& to) { to.Text({text, std::size_t(size)}); });
    });
    XML_SetCommentHandler(p, [](void* user, Name) { Do(user, [](ReportReader& to) { to.Divide(); }); });
    XML_SetProcessingInstructionHandler(
        p, [](void* user, Name, Name) { Do(user, [](ReportReader& to) { to.Divide(); }); });
    XML_SetCdataSectionHandler(
        p, [](void* user) { Do(user, [](ReportReader& to) { to.StartSection(); }); },
        [](void* user) { Do(user, [](ReportReader& to) { to.Divide(); }); });
    // A few kilobytes of entities grow to many megabytes, and a report needs none.
    XML_SetEntityDeclHandler(p, [](void* user, Name, int, Name, int, Name, Name, Name, Name) {
        Do(user, [](ReportReader& to) { to.SetFault(ReportTexts::declaredEntities); });
    });
    XML_SetAttlistDeclHandler(p, [](void* user, Name, Name, Name, Name, int) {
        Do(user, [](ReportReader& to) { to.SetFault(ReportTexts::declaredAttributes); });
    });
    XML_SetSkippedEntityHandler(p, [](void* user, Name name, int) {
        Do(user, [&](ReportReader& to) { to.SetFault(ReportTexts::unknownEntity, name); });
    });
    reader.Begin();
    isOutOfMemory = false;
}

std::optional<RunFault> ReportRuns_Private::FaultHere() const
{
    XML_Parser const p = parser.get();
    RunFault fault;
    if (isOutOfMemory || XML_GetErrorCode(p) == XML_ERROR_NO_MEMORY) {
        fault.text = ReportTexts::Filled(ReportTexts::noMemory);
        return fault;
    }
    fault.line = std::int64_t(XML_GetCurrentLineNumber(p));
    fault.column = std::int64_t(XML_GetCurrentColumnNumber(p)) + 1;
    fault.text = reader.HasFault()
                     ? reader.Fault()
                     : ReportTexts::Filled(ReportTexts::noXml, XML_ErrorString(XML_GetErrorCode(p)));
    return fault;
}

/// Columns are right only where indentation is kept, so a report that is refused is read once more.
template <class Open>
std::optional<RunFault> ReportRuns_Private::Read(const Open& openBytes, const std::string& source,
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

std::optional<RunFault> ReportRuns_Private::ReadOnce(ByteSource& bytes, bool keepIndentation)
{
    if (!parser)
        return RunFault{0, 0, ReportTexts::Filled(ReportTexts::noMemory)};
    Prepare();
    ReportBytes clean(keepIndentation);
    for (bool isLast = false; !isLast;) {
        auto* const piece = static_cast<char*>(XML_GetBuffer(parser.get(), pieceSize));
        if (!piece)
            return RunFault{0, 0, ReportTexts::Filled(ReportTexts::noMemory)};
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
    : d(std::make_unique<ReportRuns_Private>())
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
