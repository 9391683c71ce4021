#include "Errors.h"

namespace ZYN::Python {

namespace {

PyObject* Add(py::module_& module, const char* name, const char* text, PyObject* base)
{
    const std::string full = std::string("zyn.") + name;
    PyObject* const error = PyErr_NewExceptionWithDoc(full.c_str(), text, base, nullptr);
    if (!error)
        throw py::error_already_set();
    module.add_object(name, error);
    return error;
}

} // namespace

void AddErrors(py::module_& module)
{
    Errors::Any = Add(module, "Error", "Whatever the libraries refuse.", PyExc_Exception);
    Errors::Read = Add(module, "ReadError",
                       "A file that cannot be read, or not to its end.\n\n"
                       "file: its name; reason: what is wrong; line, column: from 1, 0 where there is none;\n"
                       "offset: byte of an STDF file from 0, -1 where there is none.",
                       Errors::Any);
    Errors::Archive =
        Add(module, "ArchiveError", "What is wrong with an archive, and what to do.", Errors::Any);
    Errors::Record = Add(module, "RecordError",
                         "What makes no sense in a record: a value measured twice, one after the end.\n"
                         "What was recorded before stays.",
                         Errors::Any);
    Errors::Write = Add(module, "WriteError", "A report that could not be written in full.", Errors::Any);
}

void Raise(PyObject* error, const QString& text)
{
    PyErr_SetObject(error, Str(text).ptr());
    throw py::error_already_set();
}

py::object ReadErrorOf(const std::string& file, const RunFault& fault)
{
    std::string text = file + ":";
    if (fault.line > 0)
        text +=
            std::to_string(fault.line) + ":" + (fault.column > 0 ? std::to_string(fault.column) + ":" : "");
    if (fault.offset >= 0)
        text += " at offset " + std::to_string(fault.offset) + ":";
    py::object error = py::reinterpret_borrow<py::object>(Errors::Read)(Str(text + " " + fault.text));
    error.attr("file") = Str(file);
    error.attr("reason") = Str(fault.text);
    error.attr("line") = fault.line;
    error.attr("column") = fault.column;
    error.attr("offset") = fault.offset;
    return error;
}

} // namespace ZYN::Python
