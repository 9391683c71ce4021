#pragma once

#include <ZYNCommon/ZYNTypes.h>

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
};

/// How a column looks its text up.
using Lookup = QString (*)(const Row& row);

QString Ident(const Row& row);
QString SpreadsheetIdent(const Row& row);
QString Name(const Row& row);
QString TypeCode(const Row& row);
QString Type(const Row& row);

QString ResultCode(const Row& row);
QString Result(const Row& row);

/// The value as it is stored, in the base unit and decimal; empty when nothing was measured.
QString PlainValue(const Row& row);
/// The value as the row shows it. Without a display decimal, whatever the unit.
QString ShownValue(const Row& row);
/// The value as the result shows it. Without a display still in the radix of its unit.
QString ResultValue(const Row& row);
/// The unit with the prefix of the row's display.
QString Unit(const Row& row);

/// Operator and limit as they are stored; empty when there is no such limit.
QString LowerOperator(const Row& row);
QString PlainLowerLimit(const Row& row);
QString UpperOperator(const Row& row);
QString PlainUpperLimit(const Row& row);
/// The limit as the validation shows it, whatever the row's display.
QString ShownLowerLimit(const Row& row);
QString ShownUpperLimit(const Row& row);
/// The limit as the result shows it with the row's display.
QString ResultLowerLimit(const Row& row);
QString ResultUpperLimit(const Row& row);

/// Duration in milliseconds.
QString Duration(const Row& row);
/// Duration for people.
QString DurationForPeople(const Row& row);
QString Attribute(const Row& row);
QString Comment(const Row& row);
/// On one line: outer white space removed, every run of it inside made one blank.
QString SimplifiedAttribute(const Row& row);
QString SimplifiedComment(const Row& row);

} // namespace ReportText

} // namespace ZYN
