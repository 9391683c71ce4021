#pragma once

#include "Texts.h"

#include "runs/ReportRuns.h"

namespace ZYN::Python {

/// The module's exceptions, each a Python class that lives as long as the interpreter.
struct Errors {
    static inline PyObject* Any = nullptr;     ///< zyn.Error, of which the others are
    static inline PyObject* Read = nullptr;    ///< zyn.ReadError
    static inline PyObject* Archive = nullptr; ///< zyn.ArchiveError
    static inline PyObject* Record = nullptr;  ///< zyn.RecordError
    static inline PyObject* Write = nullptr;   ///< zyn.WriteError
};

void AddErrors(py::module_& module);

/// Throws what Python sees as an exception of the class.
[[noreturn]] void Raise(PyObject* error, const QString& text);

/// A zyn.ReadError with its places.
/// \param file what to call it
py::object ReadErrorOf(const std::string& file, const RunFault& fault);

} // namespace ZYN::Python
