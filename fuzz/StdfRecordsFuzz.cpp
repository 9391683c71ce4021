// STDF files of any source: reader, decoder, checker, what prints records for machines and people, and runs.

#include "FuzzSupport.h"

#include "runs/StdfRuns.h"
#include "stdf/Checker.h"
#include "stdf/JsonPrinter.h"
#include "stdf/TextPrinter.h"

#include <QtCore/QBuffer>
#include <QtCore/QJsonDocument>

using namespace ZYN;
using namespace ZYN::Fuzz;

namespace {

constexpr qsizetype headerSize = 4;

void RequireJson(const QByteArray& line)
{
    QJsonParseError error;
    QJsonDocument::fromJson(line, &error);
    Require(error.error == QJsonParseError::NoError && !line.contains('\n'), "a record is one line of JSON",
            QString::fromUtf8(line));
}

/// Runs are complete in themselves, and the same when the file is read again.
void CheckRuns(const QByteArray& bytes)
{
    StdfRuns reader;
    std::vector<Run> first;
    for (const bool isFirst : {true, false}) {
        std::size_t index = 0;
        const auto fault = reader.Read({bytes.constData(), std::size_t(bytes.size())}, "lot", [&](Run&& run) {
            const std::size_t size = run.layout->components.size();
            Require(run.values.size() == size && run.codes.size() == size && run.seconds.size() == size,
                    "arrays are as long as the layout");
            Require(!run.limits || run.limits->lower.size() == size, "limits are as long as the layout");
            Require(run.runIndex == int(index), "runs are counted");
            if (isFirst)
                first.push_back(run);
            else
                Require(index < first.size() && first[index].codes.size() <= size &&
                            first[index].serial == run.serial && first[index].code == run.code,
                        "reading again gives the same");
            ++index;
            return true;
        });
        Require(!fault || !fault->text.empty(), "a fault has a text");
        Require(isFirst || index == first.size(), "reading again gives as many");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    QByteArray bytes = Input(data, size);
    CheckRuns(bytes);
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    Stdf::Reader reader(&buffer);
    Stdf::Checker checker;
    Stdf::TextPrinter all([](const QString&) {});
    Stdf::TextPrinter failed([](const QString&) {}, true);
    qint64 end = 0;
    for (Stdf::RawRecord raw; reader.Next(raw);) {
        const Stdf::Record record = Stdf::Decode(raw, reader.IsBigEndian());
        Require(raw.offset == end && record.offset == end, "records follow each other");
        Require(!record.type || record.values.size() <= qsizetype(record.type->fields.size()),
                "a record has no more values than fields");
        end += headerSize + raw.body.size();
        RequireJson(Stdf::ToJsonLine(raw, reader.IsBigEndian()));
        checker.Take(raw, reader.IsBigEndian());
        all.Take(raw, record);
        failed.Take(raw, record);
    }
    Require(reader.Offset() == end, "the reader knows where it ended");
    if (const auto& fault = reader.GetFault()) {
        Require(!fault->text.isEmpty() && fault->offset <= end, "a fault has a text and a place");
        RequireJson(Stdf::ToJsonLine(*fault));
    } else if (!reader.IsCompressed()) {
        Require(end == qint64(size), "a file without a fault was read to its end");
    }
    checker.Finish(reader);
    all.Finish(reader);
    failed.Finish(reader);
    Require(checker.HasFaults() || !reader.GetFault(), "a fault of the reader is a finding");
    for (const Stdf::Finding& finding : checker.GetFindings())
        Require(!finding.text.isEmpty() && finding.offset >= 0 && finding.offset <= end,
                "a finding has a text and a place");
    return 0;
}
