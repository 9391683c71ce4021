#include "ByteSource.h"

#include "ReportTexts.h"
#include "Unpacker.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>
#include <zlib.h>

namespace ZYN {

namespace {

/// Bytes that are not compressed are read past the buffer, but for the first.
constexpr std::size_t bufferSize = 16 * 1024;
constexpr std::string_view gzipMark = "\x1f\x8b";

} // namespace

ByteSource::ByteSource() = default;

ByteSource::~ByteSource()
{
    if (m_inflater)
        inflateEnd(m_inflater.get());
    if (m_file >= 0)
        close(m_file);
}

void ByteSource::OpenFile(const std::string& path)
{
    m_file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (m_file < 0) {
        m_error = ReportTexts::Filled(ReportTexts::cannotOpen, std::strerror(errno));
        return;
    }
    Begin();
}

void ByteSource::OpenMemory(std::string_view bytes)
{
    m_memory = bytes;
    Begin();
}

/// Looks at the first bytes.
void ByteSource::Begin()
{
    m_buffer = std::make_unique_for_overwrite<char[]>(bufferSize);
    if (!Refill())
        return;
    // A device may give a single byte at first.
    while (m_raw.size() < Unpacker::MarkSize) {
        char byte = 0;
        if (ReadRaw(&byte, 1) == 0)
            break;
        m_buffer[m_raw.size()] = byte;
        m_raw = std::string_view(m_buffer.get(), m_raw.size() + 1);
    }
    if (Unpacker::Fits(m_raw))
        m_unpacker = std::make_unique<Unpacker>([this] {
            const std::string_view piece = m_raw.empty() && !Refill() ? std::string_view() : m_raw;
            m_raw = {};
            return piece;
        });
    if (!m_raw.starts_with(gzipMark))
        return;
    m_inflater = std::make_unique<z_stream>();
    *m_inflater = {};
    constexpr int gzipOnly = 15 + 16;
    if (inflateInit2(m_inflater.get(), gzipOnly) != Z_OK) {
        m_inflater.reset();
        m_error = ReportTexts::Filled(ReportTexts::noMemory);
    }
    m_inMember = true;
}

std::size_t ByteSource::ReadRaw(char* to, std::size_t size)
{
    if (m_file < 0) {
        const std::size_t count = m_memory.copy(to, size);
        m_memory.remove_prefix(count);
        return count;
    }
    ssize_t count = 0;
    do {
        count = read(m_file, to, size);
    } while (count < 0 && errno == EINTR);
    if (count < 0)
        m_error = ReportTexts::Filled(ReportTexts::cannotRead, std::strerror(errno));
    return count < 0 ? 0 : std::size_t(count);
}

bool ByteSource::Refill()
{
    m_raw = std::string_view(m_buffer.get(), ReadRaw(m_buffer.get(), bufferSize));
    return !m_raw.empty();
}

std::size_t ByteSource::Read(char* to, std::size_t size)
{
    if (!m_error.empty())
        return 0;
    if (m_inflater)
        return Inflate(to, size);
    if (m_unpacker) {
        const std::size_t count = m_unpacker->Read(to, size);
        if (m_error.empty() && !m_unpacker->Error().empty())
            m_error = ReportTexts::Filled(ReportTexts::damaged, m_unpacker->Error());
        return count;
    }
    if (m_raw.empty())
        return ReadRaw(to, size);
    const std::size_t count = m_raw.copy(to, size);
    m_raw.remove_prefix(count);
    return count;
}

/// Several members one behind the other are one text, as gzip has it.
std::size_t ByteSource::Inflate(char* to, std::size_t size)
{
    z_stream& stream = *m_inflater;
    stream.next_out = reinterpret_cast<Bytef*>(to);
    stream.avail_out = uInt(size);
    while (stream.avail_out == size) {
        if (m_raw.empty() && !Refill()) {
            if (m_inMember && m_error.empty())
                m_error = ReportTexts::Filled(ReportTexts::cutOff);
            break;
        }
        if (!m_inMember && inflateReset(&stream) != Z_OK)
            break;
        m_inMember = true;
        stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(m_raw.data())); // only read by zlib
        stream.avail_in = uInt(m_raw.size());
        const int answer = inflate(&stream, Z_NO_FLUSH);
        m_raw.remove_prefix(m_raw.size() - stream.avail_in);
        if (answer == Z_STREAM_END) {
            m_inMember = false;
        } else if (answer != Z_OK && answer != Z_BUF_ERROR) {
            m_error = ReportTexts::Filled(ReportTexts::damaged, stream.msg ? stream.msg : zError(answer));
            break;
        }
    }
    return size - stream.avail_out;
}

} // namespace ZYN
