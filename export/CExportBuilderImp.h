#pragma once

#include "IExportBuilder.h"
#include "IOutputState.h"

#include <QtCore/QFile>
#include <QtCore/QMap>
#include <QtCore/QString>

class QTextStream;
class QXmlStreamWriter;

namespace ZYN {

/// Base of the format builders: owns the output file, the settings and the flags. Every Begin/End
/// operation answers true and writes nothing; a format overrides what it writes.
class CExportBuilderImp : public IExportBuilder, public IOutputState {
public:
    CExportBuilderImp() = default;
    CExportBuilderImp(const CExportBuilderImp&) = delete;
    CExportBuilderImp& operator=(const CExportBuilderImp&) = delete;
    /// Closes and deletes the file that `OpenFile` made; a device set from outside is left alone.
    ~CExportBuilderImp() override;

    void SetProperty(const QString& key, const QString& value) override;
    void SetDevice(QIODevice* device) override;
    QIODevice* GetDevice() override;
    bool OpenFile(const QString& fileName) override;
    void SetUseScaledData(bool flag) override;
    bool GetUseScaledData() override;
    bool IsOpened() override;

#define ZYN_SLOT_NONE(name)                                                                                  \
    bool name() override                                                                                     \
    {                                                                                                        \
        return true;                                                                                         \
    }
#define ZYN_SLOT_ONE(name, Model)                                                                            \
    bool name(Model*) override                                                                               \
    {                                                                                                        \
        return true;                                                                                         \
    }
#define ZYN_SLOT_RESULT(name, Component)                                                                     \
    bool name(Component*, TestResult*) override                                                              \
    {                                                                                                        \
        return true;                                                                                         \
    }
    ZYN_EXPORT_BUILDER_SLOTS(ZYN_SLOT_NONE, ZYN_SLOT_ONE, ZYN_SLOT_RESULT)
#undef ZYN_SLOT_NONE
#undef ZYN_SLOT_ONE
#undef ZYN_SLOT_RESULT

    virtual void SetOpened(bool flag);

    /// The value of a setting; empty when it was not set.
    QString GetProperty(const QString& key) const;
    bool OutputComplete() const override;
    QString OutputError() const override;

protected:
    /// The current device, opened on demand; null when there is none or it cannot be opened.
    QIODevice* OpenedDevice();
    /// Binds the stream of a text format to the opened device for a new document.
    /// \return false when there is no device or it cannot be opened
    bool BindStream(QTextStream& stream);
    /// A path relative to the folder of the output file; unchanged when the builder owns no file.
    QString RelativeToOutput(const QString& path) const;
    /// Removes the output file from disk.
    bool RemoveOutputFile();

    /// Remembers that output was lost, until the next document begins.
    void NoteOutputFailure();
    /// Flush what a stream still holds and remember whether everything so far reached the device. To be
    /// called at the end of a document, before the device is let go.
    void CheckOutput(QTextStream& stream);
    void CheckOutput(const QXmlStreamWriter& stream);
    /// The same for the device alone: what the file still buffers goes to the disk.
    void CheckOutput();

    /// Open the file without text translation.
    bool m_rawMode = false;
    /// In raw mode: open it for reading and writing, and do not truncate it.
    bool m_readWrite = false;

private:
    QIODevice::OpenMode OutputMode() const;
    void ReleaseFile();

    QIODevice* m_device = nullptr;
    QFile* m_file = nullptr;
    bool m_opened = false;
    bool m_useScaledData = false;
    QMap<QString, QString> m_properties;
    bool m_outputFailed = false;
    QString m_outputError; ///< what the device said to it
    bool m_documentEnded = false;
};

} // namespace ZYN
