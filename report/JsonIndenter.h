#pragma once

#include <QtCore/QByteArrayList>
#include <QtCore/QIODevice>

#include <vector>

namespace ZYN {

/// Lays compact JSON out as `QJsonDocument::Indented` does, on its way to a device.
class JsonIndenter {
public:
    explicit JsonIndenter(QIODevice& target)
        : m_device(target)
        , m_buffer(1 << 16)
    {
    }

    /// Adds a piece of the document. No piece ends within a text.
    void Write(QByteArrayView compact);
    /// Adds what is between the brackets of an array.
    void WriteItems(const QByteArrayList& items);
    /// Ends the document.
    /// \return whether the device took all of it; nothing follows what it refused
    bool Finish();

private:
    void AddLineBreak();
    void Add(const char* text, qsizetype size);
    char* Room(qsizetype size);
    void Flush();

    QIODevice& m_device;
    std::vector<char> m_buffer;
    qsizetype m_used = 0;
    qsizetype m_depth = 0;
    bool m_lineEnded = false;
    bool m_complete = true;
};

} // namespace ZYN
