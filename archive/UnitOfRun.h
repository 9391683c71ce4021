#pragma once

#include "runs/Run.h"

#include <string>

namespace ZYN {

/// What makes the unit of a run the same unit as that of another. Borrows from the run.
struct UnitOfRun {
    explicit UnitOfRun(const Run& run)
        : product(&run.product)
        , lot(&run.lot)
        , serial(&run.serial)
        , ident(run.serial.empty() ? &run.ident : &None())
        , wafer(&run.wafer)
        , isPanel(run.isPanel)
    {
    }

    /// Without serial and ident: no other run is of the same unit.
    bool IsAnonymous() const { return serial->empty() && ident->empty(); }

    const std::string* product;
    const std::string* lot;
    const std::string* serial;
    const std::string* ident; ///< empty beside a serial
    const std::string* wafer;
    bool isPanel;

private:
    static const std::string& None()
    {
        static const std::string none;
        return none;
    }
};

} // namespace ZYN
