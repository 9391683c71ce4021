#pragma once

#include <QtCore/QCoreApplication>
#include <QtCore/QString>

#include <string>
#include <string_view>

/// What is wrong with a report, in words. Where the report import has the same words, its translation serves
/// both.
namespace ZYN::ReportTexts {

struct Pattern {
    const char* context;
    const char* text;
};

inline constexpr Pattern cannotOpen{"ReportRuns",
                                    QT_TRANSLATE_NOOP("ReportRuns", "the file cannot be opened: %1")};
inline constexpr Pattern cannotRead{
    "CImportServiceReport",
    QT_TRANSLATE_NOOP("CImportServiceReport", "the file could not be read to its end: %1")};
inline constexpr Pattern cutOff{"ReportRuns",
                                QT_TRANSLATE_NOOP("ReportRuns", "the compressed file is cut off")};
inline constexpr Pattern damaged{"ReportRuns",
                                 QT_TRANSLATE_NOOP("ReportRuns", "the compressed file is damaged: %1")};
inline constexpr Pattern noMemory{
    "CImportServiceReport", QT_TRANSLATE_NOOP("CImportServiceReport", "Not enough memory for the import.")};
inline constexpr Pattern noXml{"ReportRuns", QT_TRANSLATE_NOOP("ReportRuns", "no well-formed XML: %1")};
inline constexpr Pattern declaredEntities{
    "QObject", QT_TRANSLATE_NOOP("QObject", "Documents that declare entities are not supported")};
inline constexpr Pattern declaredAttributes{
    "QObject", QT_TRANSLATE_NOOP("QObject", "Documents that declare attributes are not supported")};
inline constexpr Pattern crowdedTag{
    "ReportRuns", QT_TRANSLATE_NOOP("ReportRuns", "a start tag with more than %1 attributes")};
inline constexpr Pattern unknownEntity{"ReportRuns",
                                       QT_TRANSLATE_NOOP("ReportRuns", "entity '%1' is not declared")};
inline constexpr Pattern wrongRoot{
    "CImportServiceReport",
    QT_TRANSLATE_NOOP("CImportServiceReport", "the root element is '%1', not 'TestReport'")};
inline constexpr Pattern noVersion{"CImportServiceReport",
                                   QT_TRANSLATE_NOOP("CImportServiceReport", "the report has no version")};
inline constexpr Pattern unknownVersion{
    "CImportServiceReport",
    QT_TRANSLATE_NOOP("CImportServiceReport", "version '%1' is not known, only '%2'")};
inline constexpr Pattern unexpectedHere{"ReportRuns",
                                        QT_TRANSLATE_NOOP("ReportRuns", "element '%1' is not expected here")};
inline constexpr Pattern unexpected{"ReportRuns",
                                    QT_TRANSLATE_NOOP("ReportRuns", "element '%1' is not expected in '%2'")};
inline constexpr Pattern noInteger{"ReportRuns",
                                   QT_TRANSLATE_NOOP("ReportRuns", "'%1' is not an integer of 32 bits")};
inline constexpr Pattern noDuration{"ReportRuns",
                                    QT_TRANSLATE_NOOP("ReportRuns", "duration '%1' is not a number")};
inline constexpr Pattern unknownProperty{"ReportRuns",
                                         QT_TRANSLATE_NOOP("ReportRuns", "property '%1' of '%2' is unknown")};
inline constexpr Pattern strayText{
    "ReportRuns",
    QT_TRANSLATE_NOOP("ReportRuns", "text in '%1' outside of a property or behind its first piece")};
inline constexpr Pattern unitWithoutName{
    "ReportRuns", QT_TRANSLATE_NOOP("ReportRuns", "'%1' of a unit that has no name yet")};
inline constexpr Pattern lotWithoutNumber{
    "ReportRuns", QT_TRANSLATE_NOOP("ReportRuns", "order code of a lot that has no number yet")};
inline constexpr Pattern productTooEarly{
    "ReportRuns", QT_TRANSLATE_NOOP("ReportRuns", "'ProductType' before any 'UnitUnderTest'")};
inline constexpr Pattern stepWithoutGroup{
    "CImportServiceReport",
    QT_TRANSLATE_NOOP("CImportServiceReport", "step '%1' before any group, in no program")};
inline constexpr Pattern valueWithoutStep{
    "CImportServiceReport",
    QT_TRANSLATE_NOOP("CImportServiceReport", "measurement '%1' before any step, in no program")};
inline constexpr Pattern noLimits{
    "CImportServiceReport",
    QT_TRANSLATE_NOOP("CImportServiceReport", "limits that are no numbers or have an unknown operator")};
inline constexpr Pattern noNumber{"ReportRuns",
                                  QT_TRANSLATE_NOOP("ReportRuns", "value '%1' is not a number")};

/// The pattern in the user's language.
inline std::string Filled(const Pattern& pattern)
{
    return QCoreApplication::translate(pattern.context, pattern.text).toStdString();
}

template <class... Text>
std::string Filled(const Pattern& pattern, const Text&... texts)
{
    const auto toText = [](std::string_view text) {
        return QString::fromUtf8(text.data(), qsizetype(text.size()));
    };
    return QCoreApplication::translate(pattern.context, pattern.text).arg(toText(texts)...).toStdString();
}

} // namespace ZYN::ReportTexts
