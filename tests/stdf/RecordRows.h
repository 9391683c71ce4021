#pragma once

/// Records written by hand, every type of the standard, and what the reader must make of them.
namespace ZYN::RecordRows {

struct Row {
    const char* name;
    int type;
    int subType;
    const char* tokens; ///< body, see `Body` of the test
    const char* json;   ///< the fields as JSON
};

// clang-format off
inline constexpr Row rows[] = {
    {"ATR", 0, 20, "00000001 'convert'", R"("MOD_TIM":1,"CMD_LINE":"convert")"},
    {"MIR", 1, 10,
            "5c000001 5c000002 03 50 20 20 012c 4d 'L1' 'P1' 'N1' 'T1' 'J1' 'R1' 'SB' 'OP' 'ET' 'EV' 'TC' "
            "'25' 'UT' 'AF' "
            "'PK' 'FA' 'DC' 'FI' 'FL' 'PR' 'OF' 'SN' 'SV' 'FW' 'SE' 'DR' 'EN' 'RO' 'SL' 'SU'",
            R"("SETUP_T":1543503873,"START_T":1543503874,"STAT_NUM":3,"MODE_COD":"P","RTST_COD":" ","PROT_COD":" ","BURN_TIM":300,"CMOD_COD":"M","LOT_ID":"L1","PART_TYP":"P1","NODE_NAM":"N1","TSTR_TYP":"T1","JOB_NAM":"J1","JOB_REV":"R1","SBLOT_ID":"SB","OPER_NAM":"OP","EXEC_TYP":"ET","EXEC_VER":"EV","TEST_COD":"TC","TST_TEMP":"25","USER_TXT":"UT","AUX_FILE":"AF","PKG_TYP":"PK","FAMLY_ID":"FA","DATE_COD":"DC","FACIL_ID":"FI","FLOOR_ID":"FL","PROC_ID":"PR","OPER_FRQ":"OF","SPEC_NAM":"SN","SPEC_VER":"SV","FLOW_ID":"FW","SETUP_ID":"SE","DSGN_REV":"DR","ENG_ID":"EN","ROM_COD":"RO","SERL_NUM":"SL","SUPR_NAM":"SU")"},
    {"MIR, ends early", 1, 10, "00000001 00000002 01 50 20 20 ffff 20 'L1'",
            R"("SETUP_T":1,"START_T":2,"STAT_NUM":1,"MODE_COD":"P","RTST_COD":" ","PROT_COD":" ","BURN_TIM":65535,"CMOD_COD":" ","LOT_ID":"L1")"},
    {"MRR", 1, 20, "0000000a 20 'u' 'e'",
            R"("FINISH_T":10,"DISP_COD":" ","USR_DESC":"u","EXC_DESC":"e")"},
    {"PCR", 1, 30, "ff 01 00000005 00000001 ffffffff 00000004 00000003",
            R"("HEAD_NUM":255,"SITE_NUM":1,"PART_CNT":5,"RTST_CNT":1,"ABRT_CNT":4294967295,"GOOD_CNT":4,"FUNC_CNT":3)"},
    {"HBR", 1, 40, "01 02 0007 00000009 50 'good'",
            R"("HEAD_NUM":1,"SITE_NUM":2,"HBIN_NUM":7,"HBIN_CNT":9,"HBIN_PF":"P","HBIN_NAM":"good")"},
    {"SBR", 1, 50, "01 02 0007 00000009 46 'bad'",
            R"("HEAD_NUM":1,"SITE_NUM":2,"SBIN_NUM":7,"SBIN_CNT":9,"SBIN_PF":"F","SBIN_NAM":"bad")"},
    {"PMR", 1, 60, "0001 0002 'c' 'p' 'l' 01 02",
            R"("PMR_INDX":1,"CHAN_TYP":2,"CHAN_NAM":"c","PHY_NAM":"p","LOG_NAM":"l","HEAD_NUM":1,"SITE_NUM":2)"},
    {"PGR", 1, 62, "8001 'bus' 0003 0001 0002 0103",
            R"("GRP_INDX":32769,"GRP_NAM":"bus","INDX_CNT":3,"PMR_INDX":[1,2,259])"},
    {"PLR", 1, 63, "0002 0001 8001 0020 0021 02 10 'H' 'L' 'M' 'V' '0' '1' '2' '3'",
            R"("GRP_CNT":2,"GRP_INDX":[1,32769],"GRP_MODE":[32,33],"GRP_RADX":[2,16],"PGM_CHAR":["H","L"],"RTN_CHAR":["M","V"],"PGM_CHAL":["0","1"],"RTN_CHAL":["2","3"])"},
    {"RDR", 1, 70, "0002 0005 0006", R"("NUM_BINS":2,"RTST_BIN":[5,6])"},
    {"RDR, all bins", 1, 70, "0000", R"("NUM_BINS":0)"},
    {"SDR", 1, 80, "01 02 02 03 04 'a' 'b' 'c' 'd' 'e' 'f' 'g' 'h' 'i' 'j' 'k' 'l' 'm' 'n' 'o' 'p'",
            R"("HEAD_NUM":1,"SITE_GRP":2,"SITE_CNT":2,"SITE_NUM":[3,4],"HAND_TYP":"a","HAND_ID":"b","CARD_TYP":"c","CARD_ID":"d","LOAD_TYP":"e","LOAD_ID":"f","DIB_TYP":"g","DIB_ID":"h","CABL_TYP":"i","CABL_ID":"j","CONT_TYP":"k","CONT_ID":"l","LASR_TYP":"m","LASR_ID":"n","EXTR_TYP":"o","EXTR_ID":"p")"},
    {"WIR", 2, 10, "01 ff 00000007 'W1'",
            R"("HEAD_NUM":1,"SITE_GRP":255,"START_T":7,"WAFER_ID":"W1")"},
    {"WRR", 2, 20,
            "01 ff 00000007 00000001 00000002 00000003 00000004 00000005 'w' 'f' 'r' 'm' 'u' 'e'",
            R"("HEAD_NUM":1,"SITE_GRP":255,"FINISH_T":7,"PART_CNT":1,"RTST_CNT":2,"ABRT_CNT":3,"GOOD_CNT":4,"FUNC_CNT":5,"WAFER_ID":"w","FABWF_ID":"f","FRAME_ID":"r","MASK_ID":"m","USR_DESC":"u","EXC_DESC":"e")"},
    {"WCR", 2, 30, "41000000 3f000000 3e800000 01 44 fffe 0003 52 55",
            R"("WAFR_SIZ":8,"DIE_HT":0.5,"DIE_WID":0.25,"WF_UNITS":1,"WF_FLAT":"D","CENTER_X":-2,"CENTER_Y":3,"POS_X":"R","POS_Y":"U")"},
    {"PIR", 5, 10, "01 02", R"("HEAD_NUM":1,"SITE_NUM":2)"},
    {"PRR", 5, 20, "01 02 08 0003 0004 ffff 8000 ffff 00000abc 'SN' 'txt' =03010203",
            R"("HEAD_NUM":1,"SITE_NUM":2,"PART_FLG":8,"NUM_TEST":3,"HARD_BIN":4,"SOFT_BIN":65535,"X_COORD":-32768,"Y_COORD":-1,"TEST_T":2748,"PART_ID":"SN","PART_TXT":"txt","PART_FIX":"010203")"},
    {"TSR", 10, 30,
            "01 02 50 00000003 00000004 00000005 00000006 'n' 's' 'l' c8 3f800000 40000000 40400000 40800000 "
            "40a00000",
            R"("HEAD_NUM":1,"SITE_NUM":2,"TEST_TYP":"P","TEST_NUM":3,"EXEC_CNT":4,"FAIL_CNT":5,"ALRM_CNT":6,"TEST_NAM":"n","SEQ_NAME":"s","TEST_LBL":"l","OPT_FLAG":200,"TEST_TIM":1,"TEST_MIN":2,"TEST_MAX":3,"TST_SUMS":4,"TST_SQRS":5)"},
    {"PTR", 15, 10,
            "00010203 01 02 80 c0 3dcccccd 'txt' 'al' 0e fd 03 06 7f800000 7fc00000 'V' '%7.2f' '%3d' '%4d' "
            "bf800000 ff800000",
            R"("TEST_NUM":66051,"HEAD_NUM":1,"SITE_NUM":2,"TEST_FLG":128,"PARM_FLG":192,"RESULT":0.1,"TEST_TXT":"txt","ALARM_ID":"al","OPT_FLAG":14,"RES_SCAL":-3,"LLM_SCAL":3,"HLM_SCAL":6,"LO_LIMIT":"inf","HI_LIMIT":"nan","UNITS":"V","C_RESFMT":"%7.2f","C_LLMFMT":"%3d","C_HLMFMT":"%4d","LO_SPEC":-1,"HI_SPEC":"-inf")"},
    {"MPR", 15, 15,
            "00000001 01 02 00 00 0003 0002 =2103 3f800000 40000000 't' 'a' 00 01 02 03 40400000 40800000 "
            "40a00000 40c00000 0007 0008 0009 'V' 'A' 'x' 'y' 'z' 40e00000 41000000",
            R"("TEST_NUM":1,"HEAD_NUM":1,"SITE_NUM":2,"TEST_FLG":0,"PARM_FLG":0,"RTN_ICNT":3,"RSLT_CNT":2,"RTN_STAT":[1,2,3],"RTN_RSLT":[1,2],"TEST_TXT":"t","ALARM_ID":"a","OPT_FLAG":0,"RES_SCAL":1,"LLM_SCAL":2,"HLM_SCAL":3,"LO_LIMIT":3,"HI_LIMIT":4,"START_IN":5,"INCR_IN":6,"RTN_INDX":[7,8,9],"UNITS":"V","UNITS_IN":"A","C_RESFMT":"x","C_LLMFMT":"y","C_HLMFMT":"z","LO_SPEC":7,"HI_SPEC":8)"},
    {"FTR", 15, 20,
            "00000001 01 02 80 ff 00000003 00000004 00000005 00000006 fffffff9 00000008 fff7 0002 0001 000a "
            "000b =21 000c =05 000a =0502 'v' 't' 'o' 'x' 'a' 'p' 'r' 07 0001 =01",
            R"("TEST_NUM":1,"HEAD_NUM":1,"SITE_NUM":2,"TEST_FLG":128,"OPT_FLAG":255,"CYCL_CNT":3,"REL_VADR":4,"REPT_CNT":5,"NUM_FAIL":6,"XFAIL_AD":-7,"YFAIL_AD":8,"VECT_OFF":-9,"RTN_ICNT":2,"PGM_ICNT":1,"RTN_INDX":[10,11],"RTN_STAT":[1,2],"PGM_INDX":[12],"PGM_STAT":[5],"FAIL_PIN":"1010000001","VECT_NAM":"v","TIME_SET":"t","OP_CODE":"o","TEST_TXT":"x","ALARM_ID":"a","PROG_TXT":"p","RSLT_TXT":"r","PATG_NUM":7,"SPIN_MAP":"1")"},
    {"BPS", 20, 10, "'seq'", R"("SEQ_NAME":"seq")"},
    {"EPS", 20, 20, "=", ""},
    {"GDR", 50, 10,
            "000d =00 01 fe 02 fffe 03 fffffffe 04 fe 05 fffe 06 fffffffe 07 3f000000 =08 3fe0000000000000 "
            "=0a 'x' =0b =02aabb =0c 0003 =05 =0d 0c",
            R"("FLD_CNT":13,"GEN_DATA":[null,254,65534,4294967294,-2,-2,-2,0.5,0.5,"x","aabb","101",12])"},
    // Latin-1, a quote, a line feed, a backslash.
    {"DTR", 50, 30, "=0561e9220a5c", "\"TEXT_DAT\":\"a\xc3\xa9\\\"\\n\\\\\""},
};
// clang-format on

} // namespace ZYN::RecordRows
