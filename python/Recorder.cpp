#include "Recorder.h"

#include "Errors.h"

#include "runs/model/ModelRuns.h"

#include <ZYNCommon/ProductType.h>
#include <ZYNCommon/ProductionLot.h>
#include <ZYNCommon/UnitUnderTest.h>
#include <ZYNCommon/WorkSpace.h>
#include <ZYNCommon/ZYNSession.h>

#include <pybind11/stl/filesystem.h>

#include <pybind11/stl.h>

namespace ZYN::Python {

namespace {

struct UnitTexts {
    QString serial, ident, product;
};

QSharedPointer<UnitUnderTest> UnitOf(const UnitTexts& texts)
{
    const auto unit = QSharedPointer<UnitUnderTest>::create(0, texts.product);
    unit->SetSerialNo(texts.serial);
    unit->SetIdentString(texts.ident.isEmpty() ? texts.serial : texts.ident); // which STDF knows it by
    if (!texts.product.isEmpty())
        unit->SetProductType(QSharedPointer<ProductType>::create(1, texts.product));
    return unit;
}

ZYNSession* SessionOf(const QString& station, const QString& user)
{
    auto* const session = new ZYNSession;
    session->SetMachineName(station);
    if (!user.isEmpty()) {
        const auto workspace = QSharedPointer<WorkSpace>::create(0, QString());
        workspace->CreateNewUser(user);
        workspace->Login(0, QString());
        session->SetWorkSpace(workspace);
    }
    return session;
}

std::shared_ptr<Recorder> Begin(const QString& program, const UnitTexts& unit, const QString& lot,
                                const QString& station, const QString& user)
{
    const auto recorder = std::make_shared<RunRecorder>(UnitOf(unit), program);
    if (!lot.isEmpty())
        recorder->GetTest()->SetProductionLot(QSharedPointer<ProductionLot>::create(0, lot));
    if (!station.isEmpty() || !user.isEmpty())
        recorder->GetTest()->SetSession(SessionOf(station, user));
    return std::make_shared<Recorder>(recorder);
}

std::shared_ptr<Recorder> AddItem(const std::shared_ptr<Recorder>& panel, const UnitTexts& unit)
{
    RunRecorder* const item = panel->Own().AddItem(UnitOf(unit));
    panel->Need(item);
    return std::make_shared<Recorder>(std::shared_ptr<RunRecorder>(panel->Shared(), item), panel);
}

void Remark(const Recorder& recorder, const QString& comment, const QString& attribute,
            const std::optional<double>& duration)
{
    if (!comment.isEmpty())
        recorder.Need(recorder.Own().SetComment(comment));
    if (!attribute.isEmpty())
        recorder.Need(recorder.Own().SetAttribute(attribute));
    if (duration)
        recorder.Need(recorder.Own().SetDuration(*duration));
}

/// Ends what is recorded in a with statement; what was raised in it is told in the report.
bool Leave(Recorder& recorder, const py::object& type, const py::object& error)
{
    if (recorder.IsItem() || recorder.IsEnded())
        return false;
    if (!type.is_none()) {
        const QString name = type.attr("__name__").cast<QString>();
        const QString text = py::str(error).cast<QString>();
        const QString reason = text.isEmpty() ? name : name + QStringLiteral(": ") + text;
        const bool byOperator = PyErr_GivenExceptionMatches(type.ptr(), PyExc_KeyboardInterrupt) != 0;
        // Refused where the run was stopped before.
        if (byOperator)
            recorder.Own().Abort(reason);
        else
            recorder.Own().Error(reason);
    }
    recorder.End();
    return false;
}

std::vector<std::shared_ptr<Run>> RunsOf(Recorder& recorder)
{
    RunBuilder builder;
    std::vector<Run> made;
    AddRunsOfModel(recorder.End(), std::string(), builder, &made);
    std::vector<std::shared_ptr<Run>> runs;
    for (Run& run : made)
        runs.push_back(std::make_shared<Run>(std::move(run)));
    return runs;
}

EN_ZYN_GROUP KindOf(const std::string& kind)
{
    if (kind == "test")
        return ZYN_GROUP_USER;
    if (kind == "setup")
        return ZYN_GROUP_SETUP;
    if (kind == "cleanup")
        return ZYN_GROUP_CLEANUP;
    throw py::value_error("a group is of the kind 'test', 'setup' or 'cleanup'");
}

using Class = py::class_<Recorder, std::shared_ptr<Recorder>>;

void AddMeasuring(Class& recorder)
{
    recorder
        .def(
            "group",
            [](const Recorder& own, const QString& name, const std::string& kind) {
                own.Need(own.Own().BeginGroup(name, KindOf(kind)));
            },
            py::arg("name"), py::arg("kind") = "test",
            "Begins a group, or goes on with it. kind: 'test', 'setup' or 'cleanup', which may follow an "
            "abort.")
        .def(
            "step", [](const Recorder& own, const QString& name) { own.Need(own.Own().BeginStep(name)); },
            py::arg("name"), "Begins a step of the group, or goes on with it.")
        .def(
            "measure",
            [](const Recorder& own, const QString& name, const py::object& value, const py::object& lower,
               const py::object& upper, const QString& unit, const py::object& prefix,
               const py::object& expected, const py::object& nominal, const std::string& lowerOperator,
               const std::string& upperOperator, bool integer, const QString& comment,
               const QString& attribute, const std::optional<double>& duration) {
                const bool isInteger = integer || (!expected.is_none() && py::isinstance<py::int_>(expected));
                own.Need(own.Own().Measure(name, VariantOf(value, isInteger),
                                           LimitsOf(name, {lower, upper, expected, nominal, unit, prefix,
                                                           lowerOperator, upperOperator, integer})));
                Remark(own, comment, attribute, duration);
                return own.Own().GetLastResult() >= 0;
            },
            py::arg("name"), py::arg("value"), py::kw_only(), py::arg("lower") = py::none(),
            py::arg("upper") = py::none(), py::arg("unit") = QString(), py::arg("prefix") = QString(),
            py::arg("expected") = py::none(), py::arg("nominal") = py::none(),
            py::arg("lower_operator") = "<=", py::arg("upper_operator") = "<=", py::arg("integer") = false,
            py::arg("comment") = QString(), py::arg("attribute") = QString(),
            py::arg("duration") = py::none(),
            "Records a value of the step and judges it. Answers whether it did not fail.\n\n"
            "value, lower, upper, nominal: in the unit, without prefix (0.0123 A); unit: 'V', 'A', 'Ohm', "
            "'Hz', ...;\n"
            "prefix: 'm' lets people see it in mA. expected: the one good text, truth value or number; with\n"
            "unit='hex' a pattern of 32 bits. integer: numbers are integers. duration: seconds, in place of "
            "the time\n"
            "since what was recorded before. Without limits a value is not judged.")
        .def(
            "parameter",
            [](const Recorder& own, const QString& name, const py::object& value) {
                own.Need(own.Own().SetParameter(name, VariantOf(value, py::isinstance<py::int_>(value))));
            },
            py::arg("name"), py::arg("value"), "What the group runs with.")
        .def(
            "skip_step", [](const Recorder& own) { own.Need(own.Own().SkipStep()); },
            "Files the step as not tested, so that components have the same numbers in all units.")
        .def(
            "comment", [](const Recorder& own, const QString& text) { own.Need(own.Own().SetComment(text)); },
            py::arg("text"), "Of what was recorded last.")
        .def(
            "abort", [](const Recorder& own, const QString& reason) { own.Need(own.Own().Abort(reason)); },
            py::arg("reason"), "Operator or tester stop the run in the current step.")
        .def(
            "error", [](const Recorder& own, const QString& reason) { own.Need(own.Own().Error(reason)); },
            py::arg("reason"), "The tester itself failed: nothing is known about the unit.")
        .def(
            "retest", [](const Recorder& own) { own.Need(own.Own().Retest()); },
            "Ends the run and begins another one on the same unit.");
}

void AddEnding(Class& recorder)
{
    recorder
        .def(
            "finish", [](Recorder& own) { own.End(); }, "Ends the test, as leaving a with statement does.")
        .def(
            "save",
            [](Recorder& own, const std::filesystem::path& path, const QString& format, bool all) {
                Save(own.End(), path, format, all);
            },
            py::arg("path"), py::arg("format") = QString(), py::arg("all") = false,
            "Ends the test and writes it as a new file, whole or not at all; the extension chooses the "
            "format: .zyr,\n"
            ".csv, .txt, .html, .pdf, .json, .stdf. all: also what is marked as not to be reported.")
        .def(
            "append",
            [](Recorder& own, const std::filesystem::path& path, bool all) {
                return std::filesystem::path(Append(own.End(), path, all));
            },
            py::arg("path"), py::arg("all") = false,
            "Ends the test and adds it to an STDF lot, which is made if there is none and locked "
            "meanwhile.\n\n"
            "Answers the file: another one beside it where the unit is not of that lot.")
        .def_property_readonly("runs", RunsOf, "Ends the test; its runs as plain objects.")
        .def_property_readonly(
            "verdict", [](Recorder& own) { return own.End().GetResultString(); },
            "Ends the test; 'PASS', 'FAIL', 'ABORTED', ...")
        .def_property_readonly(
            "passed", [](Recorder& own) { return own.End().GetResult() > 0; },
            "Ends the test; whether it passed.")
        .def("__enter__", [](const py::object& own) { return own; })
        .def("__exit__", [](Recorder& own, const py::object& type, const py::object& error,
                            const py::object&) { return Leave(own, type, error); });
}

} // namespace

void Recorder::Need(bool good) const
{
    if (!good)
        Raise(Errors::Record, m_recorder->GetErrorText());
}

UUTTest& Recorder::End()
{
    if (m_panel)
        return m_panel->End();
    if (!m_test)
        m_test = m_recorder->Finish();
    return *m_test;
}

void AddRecorder(py::module_& module)
{
    Class recorder(
        module, "Recorder",
        "Records the test of a unit while it takes place, so that no result gets lost by a forgotten "
        "call.\n\n"
        "    with zyn.Recorder('Final test', serial='SN-1042', product='MC-48') as test:\n"
        "        test.group('Supply')\n"
        "        test.step('Rails')\n"
        "        test.measure('5 V', 5.02, lower=4.85, upper=5.15, unit='V')\n"
        "    test.save('SN-1042.zyr')\n\n"
        "What is raised in the with statement is filed as an error of the tester, Ctrl+C as an abort.");
    recorder.def(
        py::init([](const QString& program, const QString& serial, const QString& ident,
                    const QString& product, const QString& lot, const QString& station, const QString& user) {
            return Begin(program, {serial, ident, product}, lot, station, user);
        }),
        py::arg("program"), py::kw_only(), py::arg("serial") = QString(), py::arg("ident") = QString(),
        py::arg("product") = QString(), py::arg("lot") = QString(), py::arg("station") = QString(),
        py::arg("operator") = QString(),
        "ident: what a barcode reader read, else the serial. The program is built on the way: groups, steps "
        "and measurements are numbered as they come.");
    recorder.def(
        "item",
        [](const std::shared_ptr<Recorder>& own, const QString& serial, const QString& ident,
           const QString& product) {
            return AddItem(own, {serial, ident, product});
        },
        py::kw_only(), py::arg("serial") = QString(), py::arg("ident") = QString(),
        py::arg("product") = QString(),
        "A recorder for the next item of the panel that the unit is; it ends with the panel.");
    AddMeasuring(recorder);
    AddEnding(recorder);
}

} // namespace ZYN::Python
