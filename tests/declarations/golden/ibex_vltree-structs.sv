// Types of a type file, declared in SystemVerilog (IEEE 1800-2017). A type file has no signs,
// no bounds of queues, and of a class no methods, constraints and parameters. A name that is
// taken, or missing, has the id of its type at the end.

package ibex_pkg;
    typedef struct packed {
        logic [31:0] current_pc;
        logic [31:0] next_pc;
        logic [31:0] last_data_addr;
        logic [31:0] exception_pc;
        logic [31:0] exception_addr;
    } crash_dump_t;
    typedef enum logic [1:0] {
        PMP_MODE_OFF = 2'h0,
        PMP_MODE_TOR = 2'h1,
        PMP_MODE_NA4 = 2'h2,
        PMP_MODE_NAPOT = 2'h3
    } pmp_cfg_mode_e;
    typedef struct packed {
        logic lock;
        pmp_cfg_mode_e mode;
        logic exec;
        logic write;
        logic read;
    } pmp_cfg_t;
    typedef struct packed {
        logic rlb;
        logic mmwp;
        logic mml;
    } pmp_mseccfg_t;
    typedef struct packed {
        logic irq_int;
        logic irq_ext;
        logic [4:0] lower_cause;
    } exc_cause_t;
    typedef struct packed {
        logic irq_software;
        logic irq_timer;
        logic irq_external;
        logic [14:0] irq_fast;
    } irqs_t;
    typedef enum logic [1:0] {
        PRIV_LVL_M = 2'h3,
        PRIV_LVL_H = 2'h2,
        PRIV_LVL_S = 2'h1,
        PRIV_LVL_U = 2'h0
    } priv_lvl_e;
    typedef enum logic [3:0] {
        XDEBUGVER_NO = 4'h0,
        XDEBUGVER_STD = 4'h4,
        XDEBUGVER_NONSTD = 4'hf
    } x_debug_ver_e;
    typedef enum logic [2:0] {
        DBG_CAUSE_NONE = 3'h0,
        DBG_CAUSE_EBREAK = 3'h1,
        DBG_CAUSE_TRIGGER = 3'h2,
        DBG_CAUSE_HALTREQ = 3'h3,
        DBG_CAUSE_STEP = 3'h4
    } dbg_cause_e;
    typedef struct packed {
        logic dummy_instr_id;
        logic [4:0] raddr_a;
        logic [4:0] waddr_a;
        logic we_a;
        logic [4:0] raddr_b;
    } core2rf_t;
endpackage

package ibex_cheriot_pkg;
    typedef struct packed {
        logic [1:0] cap_cor;
        logic valid;
        logic rsvd;
        logic [5:0] cperms;
        logic [2:0] otype;
        logic [3:0] cexp;
        logic [8:0] top;
        logic [8:0] base;
    } cap_t;
    typedef struct packed {
        logic U0;
        logic SE;
        logic US;
        logic EX;
        logic SR;
        logic MC;
        logic LD;
        logic SL;
        logic LM;
        logic SD;
        logic LG;
        logic GL;
    } perms_t;
    typedef struct packed {
        logic [32:0] top33;
        logic [31:0] base32;
        perms_t perms;
        logic [1:0] cap_cor;
        logic valid;
        logic rsvd;
        logic [5:0] cperms;
        logic [2:0] otype;
        logic [3:0] cexp;
        logic [8:0] top;
        logic [8:0] base;
    } decoded_cap_t;
    typedef struct packed {
        logic CSET_BOUNDS_RNDN;
        logic CRAM;
        logic CRRL;
        logic CAUICGP;
        logic CAUIPCC;
        logic CJAL;
        logic CJALR;
        logic CCSR_RW;
        logic CSTORE_CAP;
        logic CSET_HIGH;
        logic CLOAD_CAP;
        logic CCLEAR_TAG;
        logic CSUB_CAP;
        logic CMOVE_CAP;
        logic CIS_EQUAL;
        logic CIS_SUBSET;
        logic CSET_BOUNDS_IMM;
        logic CSET_BOUNDS_EX;
        logic CSET_BOUNDS;
        logic CINC_ADDR_IMM;
        logic CINC_ADDR;
        logic CSET_ADDR;
        logic CAND_PERM;
        logic CUNSEAL;
        logic CSEAL;
        logic CGET_FIELD;
    } cheriot_op_t;
    typedef struct packed {
        logic CTAG;
        logic SD_LM;
        logic GL_LG;
    } cap_clrperm_t;
    typedef struct packed {
        logic [32:0] top33req;
        logic [4:0] exp1;
        logic [4:0] exp2;
        logic [5:0] explen;
        logic [5:0] expb;
        logic in_bound;
    } bound_req_t;
    typedef struct packed {
        decoded_cap_t cap;
        logic [31:0] maska;
        logic [31:0] rlen;
    } bound_result_t;
endpackage

package ibex_cs_registers__pi7;
    typedef struct packed {
        logic mie;
        logic mpie;
        ibex_pkg::priv_lvl_e mpp;
        logic mprv;
        logic tw;
    } \ibex_cs_registers.status_t ;
    typedef struct packed {
        logic mpie;
        ibex_pkg::priv_lvl_e mpp;
    } \ibex_cs_registers.status_stk_t ;
    typedef struct packed {
        ibex_pkg::x_debug_ver_e xdebugver;
        logic [11:0] zero2;
        logic ebreakm;
        logic zero1;
        logic ebreaks;
        logic ebreaku;
        logic stepie;
        logic stopcount;
        logic stoptime;
        ibex_pkg::dbg_cause_e cause;
        logic zero0;
        logic mprven;
        logic nmip;
        logic step;
        ibex_pkg::priv_lvl_e prv;
    } \ibex_cs_registers.dcsr_t ;
    typedef struct packed {
        logic double_fault_seen;
        logic sync_exc_seen;
        logic [2:0] dummy_instr_mask;
        logic dummy_instr_en;
        logic data_ind_timing;
        logic icache_enable;
    } \ibex_cs_registers.cpu_ctrl_sts_part_t ;
endpackage
