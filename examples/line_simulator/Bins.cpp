#include "Bins.h"

namespace ZYN::Simulation {

namespace {

struct Bin {
    HardBin id;
    const char* name;
};

constexpr Bin failures[] = {
    {BinContact, "CONTACT"},     {BinPassiveParts, "PASSIVE_PARTS"}, {BinSupply, "SUPPLY"},
    {BinProcessor, "PROCESSOR"}, {BinMotorOutputs, "MOTOR_OUTPUTS"}, {BinCommunication, "COMMUNICATION"},
};

QByteArray Section(long id, const QByteArray& name, const char* type, const char* result)
{
    return "[BIN" + QByteArray::number(qlonglong(id)) + "]\n_NAME_=" + name + "\n_TYPE_=" + type +
           "\n_RESULT_=" + result + "\n\n";
}

} // namespace

BinIds BinsOfFailure(int hardBin)
{
    return {hardBin, BinGood, hardBin * 10 + 1, hardBin * 10 + 2, BinGood * 10};
}

QByteArray BinsIni()
{
    const BinIds good = BinsOfFailure(BinGood);
    QByteArray ini = "; Bins of the motor controller line\n\n";
    ini += Section(good.pass, "GOOD", "HARD", "PASS");
    ini += Section(good.softPass, "GOOD_ALL_LIMITS", "SOFT", "PASS");
    for (const Bin& bin : failures) {
        const BinIds ids = BinsOfFailure(bin.id);
        ini += Section(ids.hard, bin.name, "HARD", "FAIL");
        ini += Section(ids.softLow, QByteArray(bin.name) + "_LOW", "SOFT", "FAIL");
        ini += Section(ids.softHigh, QByteArray(bin.name) + "_HIGH", "SOFT", "FAIL");
    }
    ini.chop(1);
    return ini;
}

} // namespace ZYN::Simulation
