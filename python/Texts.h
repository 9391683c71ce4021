#pragma once

// Before Qt, which has macros of names that Python uses.
#include <pybind11/pybind11.h>

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <algorithm>
#include <string>

/// \file
/// Texts on their way between Python and Qt.

namespace ZYN::Python {

namespace py = pybind11;

/// A text of a run. What is no UTF-8 does not stop anybody from reading the rest.
inline py::str Str(const std::string& text)
{
    return py::reinterpret_steal<py::str>(
        PyUnicode_DecodeUTF8(text.data(), py::ssize_t(text.size()), "replace"));
}

inline py::str Str(const QString& text)
{
    const auto* const units = reinterpret_cast<const char16_t*>(text.utf16());
    if (std::none_of(units, units + text.size(), [](char16_t unit) { return QChar::isSurrogate(unit); }))
        return py::reinterpret_steal<py::str>(
            PyUnicode_FromKindAndData(PyUnicode_2BYTE_KIND, units, py::ssize_t(text.size())));
    int order = 0; // of this machine
    return py::reinterpret_steal<py::str>(PyUnicode_DecodeUTF16(
        reinterpret_cast<const char*>(text.utf16()), py::ssize_t(text.size()) * py::ssize_t(sizeof(char16_t)),
        "surrogatepass", &order));
}

} // namespace ZYN::Python

template <>
struct pybind11::detail::type_caster<QString> {
    PYBIND11_TYPE_CASTER(QString, const_name("str"));

    bool load(handle source, bool)
    {
        if (!PyUnicode_Check(source.ptr()))
            return false;
        ssize_t size = 0;
        const char* const text = PyUnicode_AsUTF8AndSize(source.ptr(), &size);
        if (!text) {
            PyErr_Clear(); // half of a surrogate pair
            return false;
        }
        value = QString::fromUtf8(text, size);
        return true;
    }

    static handle cast(const QString& text, return_value_policy, handle)
    {
        return ZYN::Python::Str(text).release();
    }
};
