#include "Unpacker.h"

#include <archive.h>

namespace ZYN {

Unpacker::Unpacker(Source source)
    : m_source(std::move(source))
    , m_archive(archive_read_new(), &archive_read_free)
{
    archive* const a = m_archive.get();
    archive_read_support_filter_bzip2(a);
    archive_read_support_filter_xz(a);
    archive_read_support_filter_zstd(a);
    archive_read_support_format_raw(a);
    archive_read_support_format_empty(a);
    const auto read = [](archive*, void* self, const void** piece) -> la_ssize_t {
        const std::string_view bytes = static_cast<Unpacker*>(self)->m_source();
        *piece = bytes.data();
        return la_ssize_t(bytes.size());
    };
    archive_entry* entry = nullptr;
    if (archive_read_open(a, this, nullptr, read, nullptr) != ARCHIVE_OK ||
        archive_read_next_header(a, &entry) < ARCHIVE_WARN)
        Fail();
}

Unpacker::~Unpacker() = default;

bool Unpacker::Fits(std::string_view head)
{
    using namespace std::string_view_literals;
    return head.starts_with("BZh"sv) || head.starts_with("\xfd\x37zXZ\0"sv) ||
           head.starts_with("\x28\xb5\x2f\xfd"sv);
}

void Unpacker::Fail()
{
    const char* const text = archive_error_string(m_archive.get());
    m_error = text ? text : "?";
}

std::size_t Unpacker::Read(char* to, std::size_t size)
{
    if (!m_error.empty())
        return 0;
    const la_ssize_t count = archive_read_data(m_archive.get(), to, size);
    if (count < 0)
        Fail();
    return count < 0 ? 0 : std::size_t(count);
}

} // namespace ZYN
