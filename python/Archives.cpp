#include "Archives.h"

#include "Application.h"
#include "Errors.h"
#include "Filter.h"
#include "Reading.h"
#include "Records.h"

#include "archive/Archive.h"
#include "runs/files/RunStream.h"

#include <pybind11/stl.h>

#include <memory>
#include <thread>

namespace ZYN::Python {

namespace {

constexpr std::size_t runsOfTransaction = 100;

/// An archive that is asked from Python. Other threads run meanwhile, but none of them may ask the same one.
class PythonArchive {
public:
    Archive& Own()
    {
        if (std::this_thread::get_id() != m_thread)
            Raise(Errors::Archive, QStringLiteral("an archive belongs to the thread that opened it"));
        return m_archive;
    }

    /// Calls something of the archive while others run. Throws what the archive says where it fails.
    template <typename Call>
    auto Need(const Call& call)
    {
        Archive& archive = Own();
        decltype(call(archive)) answer{};
        {
            const py::gil_scoped_release others;
            answer = call(archive);
        }
        if (!answer)
            Raise(Errors::Archive, archive.GetErrorText());
        return answer;
    }

    /// The answer to a question, a dictionary a row.
    template <typename Question>
    py::list Ask(const Question& question)
    {
        const auto rows = Need(question);
        py::list records;
        for (const auto& row : *rows)
            records.append(RecordOf(row));
        return records;
    }

private:
    Archive m_archive;
    const std::thread::id m_thread = std::this_thread::get_id();
};

/// Puts all runs of files into an archive that lives as long as the object.
void Load(PythonArchive& archive, const std::string& path)
{
    archive.Need([](Archive& own) { return own.OpenTemporary(true); });
    const FoundFiles found = FindFiles(py::make_tuple(path));
    const auto refuse = [](const std::string& file, const RunFault& fault) {
        PyErr_SetObject(Errors::Read, ReadErrorOf(file, fault).ptr());
        throw py::error_already_set();
    };
    if (!found.faults.empty())
        refuse(found.faults.front().first, found.faults.front().second);
    RunStream runs(found.files);
    for (std::size_t file = 0; file < found.files.size();) {
        RunStream::Piece piece;
        archive.Need([&](Archive& own) {
            piece = runs.Take();
            return own.AddBins(piece.bins) && (piece.runs.empty() || own.Add(piece.runs, nullptr));
        });
        if (piece.fault)
            refuse(found.files[file], *piece.fault);
        file += piece.isLast;
    }
}

std::unique_ptr<PythonArchive> Open(const std::string& url, const std::string& mode)
{
    NeedApplication();
    auto archive = std::make_unique<PythonArchive>();
    const QString text = QString::fromStdString(url);
    if (mode != "r" && mode != "a" && mode != "x")
        throw py::value_error("mode is 'r' to ask, 'a' to add runs as well, 'x' for a new archive");
    if (!Archive::IsArchive(text) && mode != "r")
        throw py::value_error(url +
                              ": an archive is a file that ends in .zya, or postgresql://USER@HOST/DATABASE");
    if (!Archive::IsArchive(text))
        Load(*archive, url);
    else if (mode == "x")
        archive->Need([&](Archive& own) { return own.Create(text); });
    else
        archive->Need([&](Archive& own) {
            return own.Open(text, mode == "r" ? Archive::Mode::ReadOnly : Archive::Mode::ReadWrite);
        });
    return archive;
}

py::dict Add(PythonArchive& archive, const py::iterable& runs)
{
    AddedRuns counts;
    std::vector<Run> some;
    const auto write = [&] {
        AddedRuns added;
        if (!some.empty())
            archive.Need([&](Archive& own) { return own.Add(some, &added); });
        counts.added += added.added;
        counts.present += added.present;
        counts.revised += added.revised;
        some.clear();
    };
    for (const py::handle& run : runs) {
        some.push_back(*run.cast<std::shared_ptr<Run>>());
        if (some.size() == runsOfTransaction)
            write();
    }
    write();
    py::dict record;
    record["added"] = counts.added;
    record["present"] = counts.present;
    record["revised"] = counts.revised;
    return record;
}

std::vector<GroupBy> GroupsOf(const std::vector<QString>& names)
{
    std::vector<GroupBy> groups;
    for (const QString& name : names) {
        const qsizetype index = GroupNames().indexOf(name);
        if (index < 0)
            throw py::value_error(QStringLiteral("there are no groups by '%1'; choose of %2")
                                      .arg(name, GroupNames().join(QStringLiteral(", ")))
                                      .toStdString());
        groups.push_back(GroupBy(index));
    }
    return groups;
}

QStringList ListOf(const py::args& names)
{
    QStringList list;
    for (const py::handle& name : names)
        list.append(name.cast<QString>());
    return list;
}

/// Names that no measurement has are mistakes, not empty answers; a measurement may have none among the
/// chosen runs.
template <typename Rows>
void NeedFound(PythonArchive& own, const QStringList& names, const Rows& rows)
{
    for (const QString& name : names) {
        if (std::any_of(rows.begin(), rows.end(),
                        [&](const auto& row) { return FitsMeasurement(name, row.ident, row.path); }))
            continue;
        const auto known = own.Need([](const Archive& archive) { return AskMeasurementNames(archive); });
        if (std::none_of(known->begin(), known->end(),
                         [&](const QString& one) { return FitsMeasurement(name, one, one); }))
            Raise(Errors::Archive, QStringLiteral("there is no measurement '%1'").arg(name));
    }
}

} // namespace

void AddArchives(py::module_& module)
{
    py::class_<PythonArchive>(
        module, "Archive",
        "Runs that questions are asked of. Each takes filters by name: product, lot, station,\n"
        "program, serial, since, until (datetime, date or text; without an offset by the\n"
        "tester's clock), across_lots. Answers are lists of dictionaries. An archive belongs to\n"
        "the thread that opened it.")
        .def("add", Add, py::arg("runs"),
             "Adds runs, some at a time; what is there already is not added again.\n\n"
             "Answers how many were added, present and revised.")
        .def(
            "info", [](PythonArchive& own) { return RecordOf(*own.Need(AskInfo)); },
            "What the archive holds.")
        .def(
            "yields",
            [](PythonArchive& own, const std::vector<QString>& by, const py::kwargs& filters) {
                return own.Ask([filter = FilterOf(filters), groups = GroupsOf(by)](const Archive& archive) {
                    return AskYield(archive, filter, groups);
                });
            },
            py::arg("by") = std::vector<QString>(),
            "How many units passed, at once and in the end.\n\n"
            "by: list of 'product', 'lot', 'station', 'program', 'position', 'site', 'wafer', 'bin', 'hour', "
            "'day',\n"
            "'week', 'month'.")
        .def(
            "failures",
            [](PythonArchive& own, bool all, const py::kwargs& filters) {
                return own.Ask([filter = FilterOf(filters), all](const Archive& archive) {
                    return AskFailures(archive, filter, all);
                });
            },
            py::arg("all") = false,
            "What failed first, most often on top; with all also what failed after it.")
        .def(
            "measures",
            [](PythonArchive& own, const py::args& names, const std::vector<QString>& by,
               const py::kwargs& filters) {
                const MeasureOptions options{.names = ListOf(names), .by = GroupsOf(by)};
                const auto rows = own.Need([&, filter = FilterOf(filters)](const Archive& archive) {
                    return AskMeasures(archive, filter, options);
                });
                NeedFound(own, options.names, *rows);
                py::list records;
                for (const MeasureRow& row : *rows)
                    records.append(RecordOf(row));
                return records;
            },
            py::arg("by") = std::vector<QString>(),
            "Mean, sigma, CPK and drift of measurements, lowest CPK first; of those that are meant by a "
            "name, an\n"
            "ident, a path or the end of one, else of all. Numbers are in the unit beside them.\n\n"
            "by: a row for each, as for yields(); by path and group, without drift and rules.")
        .def(
            "values",
            [](PythonArchive& own, const py::args& names, const py::kwargs& filters) {
                const QStringList wanted = ListOf(names);
                const auto arrays = own.Need([&, filter = FilterOf(filters)](const Archive& archive) {
                    return AskValues(archive, filter, wanted);
                });
                NeedFound(own, wanted, arrays->series);
                return ColumnsOf(*arrays);
            },
            "Every finite value of the measurements that are meant, in order of time, as NumPy arrays: path, "
            "serial,\n"
            "lot, start (datetime64, UTC), value, unit (of the value), lower, upper (nan: no limit), code "
            "(passed 1,\n"
            "negative ones are failures). Where runs of several programs are chosen, program as well. Arrays "
            "belong\n"
            "together item by item: pandas.DataFrame(archive.values('Current')).")
        .def(
            "units",
            [](PythonArchive& own, bool failed, bool retested, const py::kwargs& filters) {
                return own.Ask([filter = FilterOf(filters), options = UnitOptions{failed, retested}](
                                   const Archive& archive) { return AskUnits(archive, filter, options); });
            },
            py::arg("failed") = false, py::arg("retested") = false,
            "Units with their verdicts; only those with a run that did not pass, or that were tested again.")
        .def(
            "history",
            [](PythonArchive& own, const QString& serial, const py::kwargs& filters) {
                RunFilter filter = FilterOf(filters);
                filter.serial = serial;
                return own.Ask([&](const Archive& archive) { return AskHistory(archive, filter); });
            },
            py::arg("serial"), "The runs of a unit, in order of time, and what failed first in each.")
        .def(
            "notes",
            [](PythonArchive& own, const py::kwargs& filters) {
                const auto notes = own.Need([filter = FilterOf(filters)](const Archive& archive) {
                    return AskNotes(archive, filter);
                });
                return std::vector<QString>(notes->begin(), notes->end());
            },
            "Sentences about what is odd with the runs: a serial in two lots, starts that cannot be read.");
    module.def(
        "archive",
        [](const py::object& url, const std::string& mode) {
            return Open(py::module_::import("os").attr("fspath")(url).cast<std::string>(), mode);
        },
        py::arg("url"), py::arg("mode") = "r",
        "Opens an archive: a file (.zya) or postgresql://USER@HOST/DATABASE. mode is 'r' to ask, 'a' to add "
        "runs as\n"
        "well, 'x' for a new one. Reports, STDF lots and folders are put into an archive that lives as long "
        "as the\n"
        "object.");
}

} // namespace ZYN::Python
