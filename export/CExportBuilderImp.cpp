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
    if (!m_properties.contains(key))
        m_properties.insert(key, value);
}

QString CExportBuilderImp::GetProperty(const QString& key) const
{
    return m_properties.value(key);
}

void CExportBuilderImp::SetDevice(QIODevice* newDevice)
{
    if (newDevice == m_device)
        return;
    if (m_device && m_device->isOpen()) {
        CheckOutput();
        m_device->close();
        // Closing writes too (network file systems report a full disk only here).
        if (const auto* output = qobject_cast<QFileDevice*>(m_device);
            output && output->error() != QFileDevice::NoError)
            NoteOutputFailure();
    }
    m_device = newDevice;
}

QIODevice* CExportBuilderImp::GetDevice()
{
    return m_device;
}

QIODevice::OpenMode CExportBuilderImp::OutputMode() const
{
    if (!m_rawMode)
        return QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Text;
    if (m_readWrite)
        return QIODevice::ReadWrite;
    return QIODevice::WriteOnly | QIODevice::Truncate;
}

void CExportBuilderImp::ReleaseFile()
{
    if (!m_file)
        return;
    if (m_device == m_file)
        m_device = nullptr;
    if (m_file->isOpen())
        m_file->close();
    delete m_file;
    m_file = nullptr;
}

bool CExportBuilderImp::OpenFile(const QString& fileName)
{
    if (m_file) {
        ReleaseFile();
        m_device = nullptr;
    }
    // A walk that failed leaves the builder opened; a new file begins a new document all the same.
    SetOpened(false);
    m_outputFailed = false;
    m_outputError.clear();
    m_documentEnded = false;

    m_file = new QFile(fileName);
    if (!m_file->open(OutputMode())) {
        ReleaseFile();
        m_device = nullptr;
        return false;
    }
    SetDevice(m_file);
    return true;
}

void CExportBuilderImp::SetUseScaledData(bool flag)
{
    m_useScaledData = flag;
}

bool CExportBuilderImp::GetUseScaledData()
{
    return m_useScaledData;
}

bool CExportBuilderImp::IsOpened()
{
    return m_opened;
}

void CExportBuilderImp::SetOpened(bool flag)
{
    if (m_opened && !flag)
        m_documentEnded = true;
    if (flag) {
        m_documentEnded = false;
        // A device from outside was not seen before; a file was reset when it was opened.
        if (m_device != m_file) {
            m_outputFailed = false;
            m_outputError.clear();
        }
    }
    m_opened = flag;
}

bool CExportBuilderImp::OutputComplete() const
{
    return m_documentEnded && !m_outputFailed;
}

QString CExportBuilderImp::OutputError() const
{
    return m_outputError;
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
    return m_file ? QFileInfo(m_file->fileName()).dir().relativeFilePath(path) : path;
}

bool CExportBuilderImp::RemoveOutputFile()
{
    return m_file && m_file->remove();
}

void CExportBuilderImp::NoteOutputFailure()
{
    if (!m_outputFailed && m_device)
        m_outputError = m_device->errorString();
    m_outputFailed = true;
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
