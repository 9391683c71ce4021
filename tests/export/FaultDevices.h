#pragma once

#include <QtCore/QIODevice>

namespace ZYN {

/// Takes a number of writes and refuses all later ones, as a line that breaks down.
class BreakingDevice : public QIODevice {
public:
    explicit BreakingDevice(int goodWrites)
        : writesLeft(goodWrites)
    {
    }
    QByteArray written;

protected:
    qint64 readData(char*, qint64) override { return -1; }
    qint64 writeData(const char* data, qint64 size) override
    {
        if (writesLeft <= 0)
            return -1;
        --writesLeft;
        written.append(data, size);
        return size;
    }

private:
    int writesLeft;
};

} // namespace ZYN
