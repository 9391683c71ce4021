#include "CExportBuilderImp.h"

#include <QtCore/QBuffer>
#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QTextStream>
#include <QtCore/QXmlStreamWriter>

namespace ZYN {

CExportBuilderImp::~CExportBuilderImp()
{
    ReleaseFile();
}

void CExportBuilderImp::SetProperty(const QString& key, const QString& value)
{
    if (!properties.contains(key))
        properties.insert(key, value);
}

QString CExportBuilderImp::GetProperty(const QString& key) const
{
    return properties.value(key);
}

void CExportBuilderImp::SetDevice(QIODevice* newDevice)
{
    if (newDevice == device)
        return;
    if (device && device->isOpen()) {
        CheckOutput();
        device->close();
        // Closing writes too (network file systems report a full disk only here).
        if (const auto* output = qobject_cast<QFileDevice*>(device);
            output && output->error() != QFileDevice::NoError)
            NoteOutputFailure();
    }
    device = newDevice;
}

QIODevice* CExportBuilderImp::GetDevice()
{
    return device;
}

QIODevice::OpenMode CExportBuilderImp::OutputMode() const
{
    if (!rawMode)
        return QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Text;
    if (readWrite)
        return QIODevice::ReadWrite;
    return QIODevice::WriteOnly | QIODevice::Truncate;
}

void CExportBuilderImp::ReleaseFile()
{
    if (!file)
        return;
    if (device == file)
        device = nullptr;
    if (file->isOpen())
        file->close();
    delete file;
    file = nullptr;
}

bool CExportBuilderImp::OpenFile(const QString& fileName)
{
    if (file) {
        ReleaseFile();
        device = nullptr;
    }
    // A walk that failed leaves the builder opened; a new file begins a new document all the same.
    SetOpened(false);
    outputFailed = false;
    outputError.clear();
    documentEnded = false;

    file = new QFile(fileName);
    if (!file->open(OutputMode())) {
        ReleaseFile();
        device = nullptr;
        return false;
    }
    SetDevice(file);
    return true;
}

void CExportBuilderImp::SetUseScaledData(bool flag)
{
    useScaledData = flag;
}

bool CExportBuilderImp::GetUseScaledData()
{
    return useScaledData;
}

bool CExportBuilderImp::IsOpened()
{
    return opened;
}

void CExportBuilderImp::SetOpened(bool flag)
{
    if (opened && !flag)
        documentEnded = true;
    if (flag) {
        documentEnded = false;
        // A device from outside was not seen before; a file was reset when it was opened.
        if (device != file) {
            outputFailed = false;
            outputError.clear();
        }
    }
    opened = flag;
}

bool CExportBuilderImp::OutputComplete() const
{
    return documentEnded && !outputFailed;
}

QString CExportBuilderImp::OutputError() const
{
    return outputError;
}

QIODevice* CExportBuilderImp::OpenedDevice()
{
    QIODevice* const current = GetDevice();
    if (!current || current->isOpen())
        return current;
    return current->open(OutputMode()) ? current : nullptr;
}

bool CExportBuilderImp::BindStream(QTextStream& stream)
{
    QIODevice* const output = OpenedDevice();
    if (!output)
        return false;
    // Text that a broken device refused is still pending in the stream, over a change of device too. It
    // belongs to the document that was lost, not to this one.
    QBuffer refused;
    refused.open(QIODevice::WriteOnly);
    stream.setDevice(&refused);
    stream.flush();
    stream.setDevice(output);
    return true;
}

QString CExportBuilderImp::RelativeToOutput(const QString& path) const
{
    return file ? QFileInfo(file->fileName()).dir().relativeFilePath(path) : path;
}

bool CExportBuilderImp::RemoveOutputFile()
{
    return file && file->remove();
}

void CExportBuilderImp::NoteOutputFailure()
{
    if (!outputFailed && device)
        outputError = device->errorString();
    outputFailed = true;
}

void CExportBuilderImp::CheckOutput(QTextStream& stream)
{
    stream.flush();
    if (stream.status() != QTextStream::Ok)
        NoteOutputFailure();
    CheckOutput();
}

void CExportBuilderImp::CheckOutput(const QXmlStreamWriter& stream)
{
    if (stream.hasError())
        NoteOutputFailure();
    CheckOutput();
}

void CExportBuilderImp::CheckOutput()
{
    QIODevice* const current = GetDevice();
    if (!current || !current->isWritable()) {
        NoteOutputFailure();
        return;
    }
    auto* const output = qobject_cast<QFileDevice*>(current);
    if (!output)
        return;
    // An error of an earlier write is asked for first: a flush that succeeds forgets it.
    const bool failedBefore = output->error() != QFileDevice::NoError;
    if (failedBefore || !output->flush())
        NoteOutputFailure();
}

} // namespace ZYN
