#pragma once

#include "CellText.h"

#include "export/ModelAdapter.h"

#include <QtCore/QString>

namespace ZYN {

class TestComponent;
class TestMeasurement;
class TestProgram;
class TestResult;
class TestStep;
class ValidationInterface;
class ValueDisplay;

/// What several formats look up in the model in the same way.
namespace ReportText {

/// How the result's validation shows values; null without a validation or when it has no display.
const ValueDisplay* Display(const TestResult* result);
/// "FAIL" for negative codes, else "PASS" (also for what was not tested).
QString ResultId(EN_ZYN_RESULT result);
/// The file name of the program without its folder.
QString FileName(const TestProgram* program);
/// A text that a spreadsheet program takes as text and not as a number: ="1.10".
QString SpreadsheetText(const QString& text);
/// Whether the measurement stands for its step: the one with id 0.
bool StandsForStep(const TestMeasurement* measurement);
/// Whether the step has a measurement that stands for it.
bool IsStoodFor(const TestStep* step);

/// A component and its result as the cells of one row, and how the row shows values.
struct Row {
    /// \param component not null, as the result
    /// \param display null shows values, units and limits without a scale
    Row(const TestComponent* component, const TestResult* result, const ValueDisplay* display);

    const TestComponent* component;
    const TestResult* result;
    const ValueDisplay* display;
    const ValidationInterface* validation;
    /// The validation's limits; without one there are none.
    ModelAdapter::HeldLimits limits{};
};

/// How a column looks its text up.
using Lookup = CellText (*)(const Row& row);

CellText Ident(const Row& row);
CellText SpreadsheetIdent(const Row& row);
CellText Name(const Row& row);
CellText TypeCode(const Row& row);
CellText Type(const Row& row);

CellText ResultCode(const Row& row);
CellText Result(const Row& row);

/// The value as it is stored, in the base unit and decimal; empty when nothing was measured.
CellText PlainValue(const Row& row);
/// The value as the row shows it. Without a display decimal, whatever the unit.
CellText ShownValue(const Row& row);
/// The value as the result shows it. Without a display still in the radix of its unit.
CellText ResultValue(const Row& row);
/// The unit with the prefix of the row's display.
CellText Unit(const Row& row);

/// Operator and limit as they are stored; empty when there is no such limit.
CellText LowerOperator(const Row& row);
CellText PlainLowerLimit(const Row& row);
CellText UpperOperator(const Row& row);
CellText PlainUpperLimit(const Row& row);
/// The limit as the validation shows it, whatever the row's display.
CellText ShownLowerLimit(const Row& row);
CellText ShownUpperLimit(const Row& row);
/// The limit as the result shows it with the row's display.
CellText ResultLowerLimit(const Row& row);
CellText ResultUpperLimit(const Row& row);

/// Duration in milliseconds.
CellText Duration(const Row& row);
/// Duration for people.
CellText DurationForPeople(const Row& row);
CellText Attribute(const Row& row);
CellText Comment(const Row& row);
/// On one line: outer white space removed, every run of it inside made one blank.
CellText SimplifiedAttribute(const Row& row);
CellText SimplifiedComment(const Row& row);

} // namespace ReportText

} // namespace ZYN
