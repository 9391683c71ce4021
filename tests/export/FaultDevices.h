#pragma once

#include <QtCore/QIODevice>

namespace ZYN {

/// Takes a number of writes and refuses all later ones, as a line that breaks down.
class BreakingDevice : public QIODevice {
public:
    explicit BreakingDevice(int writes)
        : goodWrites(writes)
    {
    }
    int WritesTaken() const { return taken; }
    QByteArray written;

protected:
    qint64 readData(char*, qint64) override { return -1; }
    qint64 writeData(const char* data, qint64 size) override
    {
        if (taken == goodWrites)
            return -1;
        ++taken;
        written.append(data, size);
        return size;
    }

private:
    const int goodWrites;
    int taken = 0;
};

} // namespace ZYN
