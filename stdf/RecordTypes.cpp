#include "RecordTypes.h"

#include <algorithm>

namespace ZYN::Stdf {

namespace {

using enum FieldKind;

// Table layout: a row is one field; clang-format would put one field on each line.
// clang-format off
constexpr FieldType far[] = {{"CPU_TYPE", U1}, {"STDF_VER", U1}};
constexpr FieldType atr[] = {{"MOD_TIM", U4}, {"CMD_LINE", Cn}};
constexpr FieldType mir[] = {
    {"SETUP_T", U4}, {"START_T", U4}, {"STAT_NUM", U1}, {"MODE_COD", C1}, {"RTST_COD", C1}, {"PROT_COD", C1},
    {"BURN_TIM", U2}, {"CMOD_COD", C1}, {"LOT_ID", Cn}, {"PART_TYP", Cn}, {"NODE_NAM", Cn}, {"TSTR_TYP", Cn},
    {"JOB_NAM", Cn}, {"JOB_REV", Cn}, {"SBLOT_ID", Cn}, {"OPER_NAM", Cn}, {"EXEC_TYP", Cn}, {"EXEC_VER", Cn},
    {"TEST_COD", Cn}, {"TST_TEMP", Cn}, {"USER_TXT", Cn}, {"AUX_FILE", Cn}, {"PKG_TYP", Cn}, {"FAMLY_ID", Cn},
    {"DATE_COD", Cn}, {"FACIL_ID", Cn}, {"FLOOR_ID", Cn}, {"PROC_ID", Cn}, {"OPER_FRQ", Cn}, {"SPEC_NAM", Cn},
    {"SPEC_VER", Cn}, {"FLOW_ID", Cn}, {"SETUP_ID", Cn}, {"DSGN_REV", Cn}, {"ENG_ID", Cn}, {"ROM_COD", Cn},
    {"SERL_NUM", Cn}, {"SUPR_NAM", Cn}};
constexpr FieldType mrr[] = {{"FINISH_T", U4}, {"DISP_COD", C1}, {"USR_DESC", Cn}, {"EXC_DESC", Cn}};
constexpr FieldType pcr[] = {{"HEAD_NUM", U1}, {"SITE_NUM", U1}, {"PART_CNT", U4}, {"RTST_CNT", U4},
    {"ABRT_CNT", U4}, {"GOOD_CNT", U4}, {"FUNC_CNT", U4}};
constexpr FieldType hbr[] = {{"HEAD_NUM", U1}, {"SITE_NUM", U1}, {"HBIN_NUM", U2}, {"HBIN_CNT", U4},
    {"HBIN_PF", C1}, {"HBIN_NAM", Cn}};
constexpr FieldType sbr[] = {{"HEAD_NUM", U1}, {"SITE_NUM", U1}, {"SBIN_NUM", U2}, {"SBIN_CNT", U4},
    {"SBIN_PF", C1}, {"SBIN_NAM", Cn}};
constexpr FieldType pmr[] = {{"PMR_INDX", U2}, {"CHAN_TYP", U2}, {"CHAN_NAM", Cn}, {"PHY_NAM", Cn},
    {"LOG_NAM", Cn}, {"HEAD_NUM", U1}, {"SITE_NUM", U1}};
constexpr FieldType pgr[] = {{"GRP_INDX", U2}, {"GRP_NAM", Cn}, {"INDX_CNT", U2}, {"PMR_INDX", U2, "INDX_CNT"}};
constexpr FieldType plr[] = {{"GRP_CNT", U2}, {"GRP_INDX", U2, "GRP_CNT"}, {"GRP_MODE", U2, "GRP_CNT"},
    {"GRP_RADX", U1, "GRP_CNT"}, {"PGM_CHAR", Cn, "GRP_CNT"}, {"RTN_CHAR", Cn, "GRP_CNT"},
    {"PGM_CHAL", Cn, "GRP_CNT"}, {"RTN_CHAL", Cn, "GRP_CNT"}};
constexpr FieldType rdr[] = {{"NUM_BINS", U2}, {"RTST_BIN", U2, "NUM_BINS"}};
constexpr FieldType sdr[] = {{"HEAD_NUM", U1}, {"SITE_GRP", U1}, {"SITE_CNT", U1}, {"SITE_NUM", U1, "SITE_CNT"},
    {"HAND_TYP", Cn}, {"HAND_ID", Cn}, {"CARD_TYP", Cn}, {"CARD_ID", Cn}, {"LOAD_TYP", Cn}, {"LOAD_ID", Cn},
    {"DIB_TYP", Cn}, {"DIB_ID", Cn}, {"CABL_TYP", Cn}, {"CABL_ID", Cn}, {"CONT_TYP", Cn}, {"CONT_ID", Cn},
    {"LASR_TYP", Cn}, {"LASR_ID", Cn}, {"EXTR_TYP", Cn}, {"EXTR_ID", Cn}};
constexpr FieldType wir[] = {{"HEAD_NUM", U1}, {"SITE_GRP", U1}, {"START_T", U4}, {"WAFER_ID", Cn}};
constexpr FieldType wrr[] = {{"HEAD_NUM", U1}, {"SITE_GRP", U1}, {"FINISH_T", U4}, {"PART_CNT", U4},
    {"RTST_CNT", U4}, {"ABRT_CNT", U4}, {"GOOD_CNT", U4}, {"FUNC_CNT", U4}, {"WAFER_ID", Cn},
    {"FABWF_ID", Cn}, {"FRAME_ID", Cn}, {"MASK_ID", Cn}, {"USR_DESC", Cn}, {"EXC_DESC", Cn}};
constexpr FieldType wcr[] = {{"WAFR_SIZ", R4}, {"DIE_HT", R4}, {"DIE_WID", R4}, {"WF_UNITS", U1},
    {"WF_FLAT", C1}, {"CENTER_X", I2}, {"CENTER_Y", I2}, {"POS_X", C1}, {"POS_Y", C1}};
constexpr FieldType pir[] = {{"HEAD_NUM", U1}, {"SITE_NUM", U1}};
constexpr FieldType prr[] = {{"HEAD_NUM", U1}, {"SITE_NUM", U1}, {"PART_FLG", B1}, {"NUM_TEST", U2},
    {"HARD_BIN", U2}, {"SOFT_BIN", U2}, {"X_COORD", I2}, {"Y_COORD", I2}, {"TEST_T", U4}, {"PART_ID", Cn},
    {"PART_TXT", Cn}, {"PART_FIX", Bn}};
constexpr FieldType tsr[] = {{"HEAD_NUM", U1}, {"SITE_NUM", U1}, {"TEST_TYP", C1}, {"TEST_NUM", U4},
    {"EXEC_CNT", U4}, {"FAIL_CNT", U4}, {"ALRM_CNT", U4}, {"TEST_NAM", Cn}, {"SEQ_NAME", Cn},
    {"TEST_LBL", Cn}, {"OPT_FLAG", B1}, {"TEST_TIM", R4}, {"TEST_MIN", R4}, {"TEST_MAX", R4},
    {"TST_SUMS", R4}, {"TST_SQRS", R4}};
constexpr FieldType ptr[] = {{"TEST_NUM", U4}, {"HEAD_NUM", U1}, {"SITE_NUM", U1}, {"TEST_FLG", B1},
    {"PARM_FLG", B1}, {"RESULT", R4}, {"TEST_TXT", Cn}, {"ALARM_ID", Cn}, {"OPT_FLAG", B1}, {"RES_SCAL", I1},
    {"LLM_SCAL", I1}, {"HLM_SCAL", I1}, {"LO_LIMIT", R4}, {"HI_LIMIT", R4}, {"UNITS", Cn}, {"C_RESFMT", Cn},
    {"C_LLMFMT", Cn}, {"C_HLMFMT", Cn}, {"LO_SPEC", R4}, {"HI_SPEC", R4}};
constexpr FieldType mpr[] = {{"TEST_NUM", U4}, {"HEAD_NUM", U1}, {"SITE_NUM", U1}, {"TEST_FLG", B1},
    {"PARM_FLG", B1}, {"RTN_ICNT", U2}, {"RSLT_CNT", U2}, {"RTN_STAT", N1, "RTN_ICNT"},
    {"RTN_RSLT", R4, "RSLT_CNT"}, {"TEST_TXT", Cn}, {"ALARM_ID", Cn}, {"OPT_FLAG", B1}, {"RES_SCAL", I1},
    {"LLM_SCAL", I1}, {"HLM_SCAL", I1}, {"LO_LIMIT", R4}, {"HI_LIMIT", R4}, {"START_IN", R4},
    {"INCR_IN", R4}, {"RTN_INDX", U2, "RTN_ICNT"}, {"UNITS", Cn}, {"UNITS_IN", Cn}, {"C_RESFMT", Cn},
    {"C_LLMFMT", Cn}, {"C_HLMFMT", Cn}, {"LO_SPEC", R4}, {"HI_SPEC", R4}};
constexpr FieldType ftr[] = {{"TEST_NUM", U4}, {"HEAD_NUM", U1}, {"SITE_NUM", U1}, {"TEST_FLG", B1},
    {"OPT_FLAG", B1}, {"CYCL_CNT", U4}, {"REL_VADR", U4}, {"REPT_CNT", U4}, {"NUM_FAIL", U4},
    {"XFAIL_AD", I4}, {"YFAIL_AD", I4}, {"VECT_OFF", I2}, {"RTN_ICNT", U2}, {"PGM_ICNT", U2},
    {"RTN_INDX", U2, "RTN_ICNT"}, {"RTN_STAT", N1, "RTN_ICNT"}, {"PGM_INDX", U2, "PGM_ICNT"},
    {"PGM_STAT", N1, "PGM_ICNT"}, {"FAIL_PIN", Dn}, {"VECT_NAM", Cn}, {"TIME_SET", Cn}, {"OP_CODE", Cn},
    {"TEST_TXT", Cn}, {"ALARM_ID", Cn}, {"PROG_TXT", Cn}, {"RSLT_TXT", Cn}, {"PATG_NUM", U1},
    {"SPIN_MAP", Dn}};
constexpr FieldType bps[] = {{"SEQ_NAME", Cn}};
constexpr FieldType gdr[] = {{"FLD_CNT", U2}, {"GEN_DATA", Vn, "FLD_CNT"}};
constexpr FieldType dtr[] = {{"TEXT_DAT", Cn}};

constexpr RecordType recordTypes[] = {
    {"FAR", 0, 10, far, 2},  {"ATR", 0, 20, atr, 2},
    {"MIR", 1, 10, mir, 9},  {"MRR", 1, 20, mrr, 1},  {"PCR", 1, 30, pcr, 3},  {"HBR", 1, 40, hbr, 4},
    {"SBR", 1, 50, sbr, 4},  {"PMR", 1, 60, pmr, 1},  {"PGR", 1, 62, pgr, 1},  {"PLR", 1, 63, plr, 1},
    {"RDR", 1, 70, rdr, 1},  {"SDR", 1, 80, sdr, 3},
    {"WIR", 2, 10, wir, 3},  {"WRR", 2, 20, wrr, 4},  {"WCR", 2, 30, wcr, 0},
    {"PIR", 5, 10, pir, 2},  {"PRR", 5, 20, prr, 5},
    {"TSR", 10, 30, tsr, 4},
    {"PTR", 15, 10, ptr, 5}, {"MPR", 15, 15, mpr, 5}, {"FTR", 15, 20, ftr, 4},
    {"BPS", 20, 10, bps, 0}, {"EPS", 20, 20, {}, 0},
    {"GDR", 50, 10, gdr, 1}, {"DTR", 50, 30, dtr, 1},
};
// clang-format on

} // namespace

std::span<const RecordType> RecordTypes()
{
    return recordTypes;
}

const RecordType* FindRecordType(quint8 type, quint8 subType)
{
    const auto* const found = std::ranges::find_if(recordTypes, [&](const RecordType& candidate) {
        return candidate.type == type && candidate.subType == subType;
    });
    return found == std::ranges::end(recordTypes) ? nullptr : found;
}

} // namespace ZYN::Stdf
