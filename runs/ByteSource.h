#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

struct z_stream_s;

namespace ZYN {

class Unpacker;

/// The bytes of a file or of a text in memory, piece by piece; compressed ones (gzip, bzip2, xz, zstd) are
/// decompressed.
class ByteSource {
public:
    ByteSource();
    ~ByteSource();
    ByteSource(const ByteSource&) = delete;
    ByteSource& operator=(const ByteSource&) = delete;

    /// Where the file cannot be opened there is an error.
    void OpenFile(const std::string& path);
    /// \param bytes borrowed until everything is read
    void OpenMemory(std::string_view bytes);

    /// Reads the next bytes.
    /// \return how many; 0 at the end, and when there is an error
    std::size_t Read(char* to, std::size_t size);
    /// What went wrong; empty when nothing did.
    const std::string& Error() const { return m_error; }

private:
    std::size_t ReadRaw(char* to, std::size_t size);
    bool Refill();
    void Begin();
    std::size_t Inflate(char* to, std::size_t size);

    int m_file = -1;
    std::string_view m_memory;
    std::unique_ptr<char[]> m_buffer;       ///< of what was read and not yet handed out
    std::string_view m_raw;                 ///< the rest of it
    std::unique_ptr<z_stream_s> m_inflater; ///< null: the bytes are not compressed
    bool m_inMember = false;                ///< of compressed bytes
    std::unique_ptr<Unpacker> m_unpacker;   ///< of what is compressed otherwise
    std::string m_error;
};

} // namespace ZYN
