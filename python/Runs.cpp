#include "Runs.h"

#include "archive/Questions.h"
#include "runs/files/RunItems.h"

#include <pybind11/numpy.h>
#include <pybind11/stl.h>

namespace ZYN::Python {

namespace {

constexpr int integerType = 7; // `EN_ZYN_ADDRESS`
constexpr int textType = 9;

struct Unit {
    std::shared_ptr<Run> run;
};

struct Measurement {
    std::shared_ptr<Run> run;
    std::uint32_t position;

    const RunComponent& Component() const { return run->layout->components[position]; }
};

/// A number or text as Python has it: integers of any size, None for nothing.
py::object ValueOf(const RunComponent& component, double number, const std::string* text)
{
    if (text && component.dataType != textType) {
        PyObject* const exact = component.dataType == integerType
                                    ? PyLong_FromString(text->c_str(), nullptr, 10)
                                    : PyFloat_FromString(Str(*text).ptr());
        if (exact)
            return py::reinterpret_steal<py::object>(exact);
        PyErr_Clear();
    }
    if (text)
        return Str(*text);
    if (std::isnan(number))
        return py::none();
    if (component.dataType == integerType && number == std::nearbyint(number))
        return py::reinterpret_steal<py::object>(PyLong_FromDouble(number));
    return py::float_(number);
}

py::object Limit(const Measurement& at, std::vector<double> RunLimits::*numbers, Run::Texts RunLimits::*texts)
{
    const RunLimits* const limits = at.run->limits.get();
    if (!limits)
        return py::none();
    return ValueOf(at.Component(), (limits->*numbers)[at.position], FindText(limits->*texts, at.position));
}

py::str Operator(const Measurement& at, std::vector<std::string> RunLimits::*operators)
{
    return Str(at.run->limits ? ((*at.run->limits).*operators)[at.position] : std::string());
}

py::str TextOf(const Measurement& at, Run::Texts Run::*texts)
{
    const std::string* const text = FindText((*at.run).*texts, at.position);
    return Str(text ? *text : std::string());
}

py::object StartOf(const Run& run)
{
    if (!run.start)
        return py::none();
    const py::module_ datetime = py::module_::import("datetime");
    const py::object delta = datetime.attr("timedelta");
    const std::int64_t minutes = run.utcOffset.value_or(0);
    constexpr std::int64_t millisecondsOfMinute = 60000;
    const py::object start = datetime.attr("datetime")(1970, 1, 1) +
                             delta(py::arg("milliseconds") = *run.start + minutes * millisecondsOfMinute);
    if (!run.utcOffset)
        return start;
    return start.attr("replace")(py::arg("tzinfo") =
                                     datetime.attr("timezone")(delta(py::arg("minutes") = minutes)));
}

std::vector<Measurement> OfKind(const std::shared_ptr<Run>& run, ComponentKind kind)
{
    std::vector<Measurement> found;
    for (std::uint32_t position = 0; position < run->codes.size(); ++position)
        if (run->codes[position] != Run::NoCode && run->layout->components[position].kind == kind)
            found.push_back({run, position});
    return found;
}

/// A measurement by its name, its ident, its path or the end of that.
Measurement Find(const std::shared_ptr<Run>& run, const std::string& name)
{
    const std::string end = " / " + name;
    for (std::uint32_t position = 0; position < run->codes.size(); ++position) {
        const RunComponent& component = run->layout->components[position];
        if (IsMeasuredAt(*run, position) &&
            (component.ident == name || component.path == name || component.path.ends_with(end)))
            return {run, position};
    }
    throw py::key_error(name);
}

/// An array of the run itself, which lives as long as any of them. Nobody writes into it.
template <typename Item>
py::array View(const std::shared_ptr<Run>& run, const std::vector<Item>& items)
{
    const py::object owner = py::cast(run);
    py::array_t<Item> view(py::ssize_t(items.size()), items.data(), owner);
    view.attr("flags").attr("writeable") = false;
    return view;
}

template <std::string Run::*text>
py::str RunText(const Run& run)
{
    return Str(run.*text);
}

template <std::string Run::*text>
py::str UnitText(const Unit& unit)
{
    return Str((*unit.run).*text);
}

template <std::string RunComponent::*text>
py::str ComponentText(const Measurement& measurement)
{
    return Str(measurement.Component().*text);
}

py::str Verdict(int code)
{
    return Str(VerdictOf(code));
}

void AddUnit(py::module_& module)
{
    py::class_<Unit>(module, "Unit", "Who was tested: a board, an item of a panel, a die, or a panel itself.")
        .def_property_readonly("product", UnitText<&Run::product>, "Name of the product type.")
        .def_property_readonly("lot", UnitText<&Run::lot>)
        .def_property_readonly("serial", UnitText<&Run::serial>)
        .def_property_readonly("ident", UnitText<&Run::ident>, "Usually what a barcode reader read.")
        .def_property_readonly("wafer", UnitText<&Run::wafer>)
        .def_property_readonly("panel", UnitText<&Run::panel>,
                               "Serial, else ident, of the panel that it is an item of.")
        .def_property_readonly(
            "position", [](const Unit& unit) { return unit.run->position; },
            "On the panel, from 1; None for what is no item of one.")
        .def_property_readonly("is_panel", [](const Unit& unit) { return unit.run->isPanel; })
        .def("__repr__", [](const Unit& unit) {
            return py::str("<zyn.Unit {} of lot {}>")
                .format(Str(unit.run->serial.empty() ? unit.run->ident : unit.run->serial),
                        Str(unit.run->lot));
        });
}

void AddMeasurement(py::module_& module)
{
    py::class_<Measurement>(module, "Measurement",
                            "A value with its limits. Numbers are in `unit`, which has no prefix: 0.0123 A.")
        .def_property_readonly("path", ComponentText<&RunComponent::path>,
                               "Names of group, step and measurement, joined by ' / '.")
        .def_property_readonly("name", ComponentText<&RunComponent::name>)
        .def_property_readonly("ident", ComponentText<&RunComponent::ident>)
        .def_property_readonly(
            "value",
            [](const Measurement& at) {
                return ValueOf(at.Component(), at.run->values[at.position],
                               FindText(at.run->texts, at.position));
            },
            "float, int or str as it was measured; None where nothing was.")
        .def_property_readonly("unit", ComponentText<&RunComponent::unit>)
        .def_property_readonly(
            "lower",
            [](const Measurement& at) { return Limit(at, &RunLimits::lower, &RunLimits::lowerTexts); },
            "None: no lower limit. For a text the one good text.")
        .def_property_readonly(
            "upper",
            [](const Measurement& at) { return Limit(at, &RunLimits::upper, &RunLimits::upperTexts); },
            "None: no upper limit.")
        .def_property_readonly(
            "lower_operator", [](const Measurement& at) { return Operator(at, &RunLimits::lowerOperator); },
            "'<=' for lower <= value, '==' for the one good value; empty without a limit.")
        .def_property_readonly(
            "upper_operator", [](const Measurement& at) { return Operator(at, &RunLimits::upperOperator); },
            "'<=' for value <= upper; empty without a limit.")
        .def_property_readonly(
            "nominal",
            [](const Measurement& at) {
                return at.run->limits ? ValueOf(at.Component(), at.run->limits->nominal[at.position], nullptr)
                                      : py::none();
            })
        .def_property_readonly(
            "verdict", [](const Measurement& at) { return Verdict(at.run->codes[at.position]); },
            "'PASS', 'FAIL', 'DONE' (not judged), 'NOT TESTED', 'ERROR' or 'ABORTED'.")
        .def_property_readonly(
            "code", [](const Measurement& at) { return int(at.run->codes[at.position]); },
            "Code of the verdict: passed 1, negative ones are failures.")
        .def_property_readonly(
            "duration", [](const Measurement& at) { return SecondsAt(*at.run, at.position); },
            "Seconds; None where none is known.")
        .def_property_readonly("comment", [](const Measurement& at) { return TextOf(at, &Run::comments); })
        .def_property_readonly("attribute",
                               [](const Measurement& at) { return TextOf(at, &Run::attributes); })
        .def("__repr__", [](const py::object& self) {
            return py::str("<zyn.Measurement {}: {} {} {}>")
                .format(self.attr("path"), self.attr("value"), self.attr("unit"), self.attr("verdict"));
        });
}

} // namespace

void AddRuns(py::module_& module)
{
    AddUnit(module);
    AddMeasurement(module);
    py::class_<Run, std::shared_ptr<Run>>(module, "Run", "One program executed on one unit, once.")
        .def_property_readonly(
            "unit", [](const std::shared_ptr<Run>& run) { return Unit{run}; }, "Who was tested.")
        .def_property_readonly("program", [](const Run& run) { return Str(run.layout->program); })
        .def_property_readonly(
            "version", [](const Run& run) { return Str(run.layout->version); }, "Of the program.")
        .def_property_readonly(
            "verdict", [](const Run& run) { return Verdict(run.code); },
            "'PASS', 'FAIL', 'DONE', 'NOT TESTED', 'ERROR' or 'ABORTED'.")
        .def_property_readonly(
            "code", [](const Run& run) { return run.code; },
            "Code of the verdict: passed 1, negative ones are failures.")
        .def_property_readonly("passed", [](const Run& run) { return run.code > 0; })
        .def_property_readonly(
            "start", StartOf,
            "datetime, aware where the offset from UTC is known; None if it cannot be read.")
        .def_property_readonly("start_text", RunText<&Run::startText>, "The start as it was written.")
        .def_property_readonly(
            "duration", [](const Run& run) { return run.duration; }, "Seconds; None where none is known.")
        .def_property_readonly("station", RunText<&Run::station>)
        .def_property_readonly("operator", RunText<&Run::operatorName>)
        .def_property_readonly("comment", RunText<&Run::comment>)
        .def_property_readonly("source", RunText<&Run::source>, "File that it was read from.")
        .def_property_readonly(
            "index", [](const Run& run) { return run.runIndex; },
            "Number among the runs of its unit in the file, from 0.")
        .def_property_readonly(
            "site", [](const Run& run) { return run.site; }, "Of an STDF lot, else None.")
        .def_property_readonly(
            "x", [](const Run& run) { return run.x; }, "Place on the wafer, else None.")
        .def_property_readonly(
            "y", [](const Run& run) { return run.y; }, "Place on the wafer, else None.")
        .def_property_readonly(
            "hard_bin", [](const Run& run) { return run.hardBin; }, "Of an STDF lot, else None.")
        .def_property_readonly(
            "soft_bin", [](const Run& run) { return run.softBin; }, "Of an STDF lot, else None.")
        .def_property_readonly(
            "measurements",
            [](const std::shared_ptr<Run>& run) { return OfKind(run, ComponentKind::Measurement); },
            "Those that have a result, in the order of the program.")
        .def_property_readonly(
            "parameters",
            [](const std::shared_ptr<Run>& run) { return OfKind(run, ComponentKind::Parameter); },
            "What the program ran with.")
        .def("__getitem__", Find, py::arg("name"),
             "The measurement that is meant by its name, its ident, its path or the end of that.")
        .def_property_readonly(
            "values", [](const std::shared_ptr<Run>& run) { return View(run, run->values); },
            "NumPy array of numbers by position, not copied: in the units of the components, nan where there "
            "is\n"
            "no number. Runs of one version of a program have the same positions.")
        .def_property_readonly(
            "codes", [](const std::shared_ptr<Run>& run) { return View(run, run->codes); },
            "NumPy array of verdicts by position, not copied; -32768 where the run has no result.")
        .def_property_readonly(
            "paths",
            [](const Run& run) {
                py::list paths;
                for (const RunComponent& component : run.layout->components)
                    paths.append(Str(component.path));
                return paths;
            },
            "Paths of groups, steps, parameters and measurements by position.")
        .def("__repr__", [](const Run& run) {
            return py::str("<zyn.Run {} {}: {}>")
                .format(Str(run.serial.empty() ? run.ident : run.serial), Str(run.startText),
                        Verdict(run.code));
        });
}

} // namespace ZYN::Python
