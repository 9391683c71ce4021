#include "Reading.h"

#include "Errors.h"

#include "runs/files/FolderFiles.h"
#include "runs/files/RunStream.h"

#include <pybind11/stl/filesystem.h>

#include <QtCore/QFile>
#include <QtCore/QFileInfo>

#include <filesystem>
#include <memory>

namespace ZYN::Python {

namespace {

/// Hands out the runs of files one by one; other threads of Python run while files are read.
class Runs {
public:
    Runs(FoundFiles found, py::object onError)
        : m_files(found.files)
        , m_faults(std::move(found.faults))
        , m_onError(std::move(onError))
        , m_stream(std::make_unique<RunStream>(std::move(found.files)))
    {
    }

    ~Runs()
    {
        const py::gil_scoped_release others; // a report that is being read is read to its end
        m_stream.reset();
    }
    Runs(const Runs&) = delete;
    Runs& operator=(const Runs&) = delete;

    /// \return the next run. Throws what on_error does not take; one may go on afterwards.
    std::shared_ptr<Run> Next()
    {
        for (;;) {
            if (m_next < m_piece.runs.size())
                return std::make_shared<Run>(std::move(m_piece.runs[m_next++]));
            while (m_told < m_faults.size()) {
                const auto& [file, fault] = m_faults[m_told++];
                Tell(file, fault);
            }
            if (m_file == m_files.size())
                throw py::stop_iteration();
            Take();
        }
    }

private:
    void Take()
    {
        if (m_isBusy)
            throw std::runtime_error("another thread is reading these runs");
        m_isBusy = true;
        {
            const py::gil_scoped_release others;
            m_piece = m_stream->Take();
        }
        m_isBusy = false;
        m_next = 0;
        if (m_piece.fault) // told behind the runs of the piece
            m_faults.emplace_back(m_files[m_file], *m_piece.fault);
        m_file += m_piece.isLast;
    }

    void Tell(const std::string& file, const RunFault& fault)
    {
        const py::object error = ReadErrorOf(file, fault);
        if (m_onError.is_none()) {
            PyErr_SetObject(Errors::Read, error.ptr());
            throw py::error_already_set();
        }
        m_onError(error);
    }

    const std::vector<std::string> m_files;
    std::vector<std::pair<std::string, RunFault>> m_faults; ///< those of folders, then those of files
    std::size_t m_told = 0;
    py::object m_onError;
    std::unique_ptr<RunStream> m_stream;
    RunStream::Piece m_piece;
    std::size_t m_next = 0; ///< of the piece
    std::size_t m_file = 0; ///< that is in turn
    bool m_isBusy = false;
};

} // namespace

FoundFiles FindFiles(const py::args& paths)
{
    FoundFiles found;
    for (const py::handle& given : paths) {
        const std::string path = given.cast<std::filesystem::path>().string();
        if (!QFileInfo(QFile::decodeName(path.c_str())).isDir()) {
            found.files.push_back(path);
            continue;
        }
        FolderFiles folder(ReportExtensions() + LotExtensions());
        folder.Search(QFile::decodeName(path.c_str()));
        const auto below = [&](const QString& file) {
            return file.isEmpty()
                       ? path
                       : (std::filesystem::path(path) / QFile::encodeName(file).toStdString()).string();
        };
        for (const QString& file : folder.GetFiles())
            found.files.push_back(below(file));
        for (const FolderFiles::Problem& problem : folder.GetProblems())
            found.faults.emplace_back(below(problem.file), RunFault{.text = problem.what.toStdString()});
    }
    return found;
}

void AddReading(py::module_& module)
{
    py::class_<Runs>(module, "Runs", "Runs of files, read as they are asked for.")
        .def("__iter__", [](const py::object& self) { return self; })
        .def("__next__", &Runs::Next);
    module.def(
        "read",
        [](const py::args& paths, const py::object& onError) {
            return std::make_unique<Runs>(FindFiles(paths), onError);
        },
        py::arg("on_error") = py::none(),
        "Reads reports (.zyr, also compressed), STDF lots of any tester and folders of both.\n\n"
        "Answers an iterator over their runs, in the order of the files. Files are read ahead on all cores, "
        "a\n"
        "bounded number of runs, so that memory does not grow with them. What cannot be read is a ReadError; "
        "one\n"
        "may go on with next() afterwards. With on_error it is called with each ReadError, and reading goes "
        "on.");
}

} // namespace ZYN::Python
