#include "runs/StdfRuns.h"

#include "StdfReader.h"

namespace ZYN {

class [[gnu::visibility("hidden")]] StdfRuns_Private
{
public:
    std::optional<RunFault> Read(StdfReader::OpenBytes open, const std::string& source,
                                 const StdfRuns::Take& take)
    {
        StdfReader reader(builder, std::move(open), source, take);
        const std::optional<RunFault> fault = reader.Read();
        bins = reader.TakeBins();
        return fault;
    }

    RunBuilder builder;
    std::vector<LotBin> bins;
};

StdfRuns::StdfRuns()
    : d(std::make_unique<StdfRuns_Private>())
{
}

StdfRuns::~StdfRuns() = default;

bool StdfRuns::IsStdf(const std::string& path)
{
    ByteSource bytes;
    bytes.OpenFile(path);
    char head[4] = {};
    std::size_t size = 0;
    while (size < sizeof head) {
        const std::size_t more = bytes.Read(head + size, sizeof head - size);
        if (more == 0)
            return false;
        size += more;
    }
    using namespace std::string_view_literals;
    const std::string_view first(head, sizeof head);
    return first == "\x02\x00\x00\x0a"sv || first == "\x00\x02\x00\x0a"sv;
}

std::optional<RunFault> StdfRuns::ReadFile(const std::string& path, const Take& take)
{
    return d->Read([path](ByteSource& bytes) { bytes.OpenFile(path); }, path, take);
}

std::optional<RunFault> StdfRuns::Read(std::string_view bytes, const std::string& source, const Take& take)
{
    return d->Read([bytes](ByteSource& opened) { opened.OpenMemory(bytes); }, source, take);
}

const std::vector<LotBin>& StdfRuns::Bins() const
{
    return d->bins;
}

} // namespace ZYN
