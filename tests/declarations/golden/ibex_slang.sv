// Types of a type file, declared in SystemVerilog (IEEE 1800-2017). A type file has no signs,
// no bounds of queues, and of a class no methods, constraints and parameters. A name that is
// taken, or missing, has the id of its type at the end.

package prim_mubi_pkg;
    typedef enum logic [3:0] {
        MuBi4True = 4'h6,
        MuBi4False = 4'h9
    } mubi4_t;
    typedef enum logic [7:0] {
        MuBi8True = 8'h96,
        MuBi8False = 8'h69
    } mubi8_t;
    typedef enum logic [11:0] {
        MuBi12True = 12'h696,
        MuBi12False = 12'h969
    } mubi12_t;
    typedef enum logic [15:0] {
        MuBi16True = 16'h9696,
        MuBi16False = 16'h6969
    } mubi16_t;
    typedef enum logic [19:0] {
        MuBi20True = 20'h69696,
        MuBi20False = 20'h96969
    } mubi20_t;
    typedef enum logic [23:0] {
        MuBi24True = 24'h969696,
        MuBi24False = 24'h696969
    } mubi24_t;
    typedef enum logic [27:0] {
        MuBi28True = 28'h6969696,
        MuBi28False = 28'h9696969
    } mubi28_t;
    typedef enum logic [31:0] {
        MuBi32True = 32'h96969696,
        MuBi32False = 32'h69696969
    } mubi32_t;
endpackage

package prim_secded_pkg;
    typedef enum int {
        SecdedHsiao = 32'h00000000,
        SecdedHamming = 32'h00000001,
        SecdedInvHsiao = 32'h00000002,
        SecdedInvHamming = 32'h00000003
    } prim_secded_type_e;
    typedef enum int {
        SecdedNone = 32'h00000000,
        Secded_22_16 = 32'h00000001,
        Secded_28_22 = 32'h00000002,
        Secded_39_32 = 32'h00000003,
        Secded_64_57 = 32'h00000004,
        Secded_72_64 = 32'h00000005,
        SecdedHamming_22_16 = 32'h00000006,
        SecdedHamming_39_32 = 32'h00000007,
        SecdedHamming_72_64 = 32'h00000008,
        SecdedHamming_76_68 = 32'h00000009,
        SecdedInv_22_16 = 32'h0000000a,
        SecdedInv_28_22 = 32'h0000000b,
        SecdedInv_39_32 = 32'h0000000c,
        SecdedInv_64_57 = 32'h0000000d,
        SecdedInv_72_64 = 32'h0000000e,
        SecdedInvHamming_22_16 = 32'h0000000f,
        SecdedInvHamming_39_32 = 32'h00000010,
        SecdedInvHamming_72_64 = 32'h00000011,
        SecdedInvHamming_76_68 = 32'h00000012
    } prim_secded_e;
    typedef struct packed {
        logic [15:0] data;
        logic [5:0] syndrome;
        logic [1:0] err;
    } secded_22_16_t;
    typedef struct packed {
        logic [21:0] data;
        logic [5:0] syndrome;
        logic [1:0] err;
    } secded_28_22_t;
    typedef struct packed {
        logic [31:0] data;
        logic [6:0] syndrome;
        logic [1:0] err;
    } secded_39_32_t;
    typedef struct packed {
        logic [56:0] data;
        logic [6:0] syndrome;
        logic [1:0] err;
    } secded_64_57_t;
    typedef struct packed {
        logic [63:0] data;
        logic [7:0] syndrome;
        logic [1:0] err;
    } secded_72_64_t;
    typedef struct packed {
        logic [15:0] data;
        logic [5:0] syndrome;
        logic [1:0] err;
    } secded_hamming_22_16_t;
    typedef struct packed {
        logic [31:0] data;
        logic [6:0] syndrome;
        logic [1:0] err;
    } secded_hamming_39_32_t;
    typedef struct packed {
        logic [63:0] data;
        logic [7:0] syndrome;
        logic [1:0] err;
    } secded_hamming_72_64_t;
    typedef struct packed {
        logic [67:0] data;
        logic [7:0] syndrome;
        logic [1:0] err;
    } secded_hamming_76_68_t;
    typedef struct packed {
        logic [15:0] data;
        logic [5:0] syndrome;
        logic [1:0] err;
    } secded_inv_22_16_t;
    typedef struct packed {
        logic [21:0] data;
        logic [5:0] syndrome;
        logic [1:0] err;
    } secded_inv_28_22_t;
    typedef struct packed {
        logic [31:0] data;
        logic [6:0] syndrome;
        logic [1:0] err;
    } secded_inv_39_32_t;
    typedef struct packed {
        logic [56:0] data;
        logic [6:0] syndrome;
        logic [1:0] err;
    } secded_inv_64_57_t;
    typedef struct packed {
        logic [63:0] data;
        logic [7:0] syndrome;
        logic [1:0] err;
    } secded_inv_72_64_t;
    typedef struct packed {
        logic [15:0] data;
        logic [5:0] syndrome;
        logic [1:0] err;
    } secded_inv_hamming_22_16_t;
    typedef struct packed {
        logic [31:0] data;
        logic [6:0] syndrome;
        logic [1:0] err;
    } secded_inv_hamming_39_32_t;
    typedef struct packed {
        logic [63:0] data;
        logic [7:0] syndrome;
        logic [1:0] err;
    } secded_inv_hamming_72_64_t;
    typedef struct packed {
        logic [67:0] data;
        logic [7:0] syndrome;
        logic [1:0] err;
    } secded_inv_hamming_76_68_t;
endpackage

package prim_count_pkg;
    typedef logic [3:0] action_mask_t;
    typedef enum action_mask_t {
        Clr = 4'h1,
        Set = 4'h2,
        Incr = 4'h4,
        Decr = 4'h8
    } action_e;
endpackage

package prim_ram_1p_pkg;
    typedef struct packed {
        logic [11:0] req;
    } ram_1p_cfg_req_t;
    typedef struct packed {
        logic [0:0] rsp;
    } ram_1p_cfg_rsp_t;
endpackage

package ibex_pkg;
    typedef struct packed {
        logic [31:0] current_pc;
        logic [31:0] next_pc;
        logic [31:0] last_data_addr;
        logic [31:0] exception_pc;
        logic [31:0] exception_addr;
    } crash_dump_t;
    typedef struct packed {
        logic dummy_instr_id;
        logic [4:0] raddr_a;
        logic [4:0] waddr_a;
        logic we_a;
        logic [4:0] raddr_b;
    } core2rf_t;
    typedef enum integer {
        BaseIsaRV32I = 32'h00000000,
        BaseIsaRV32IorCHERIoT = 32'h00000001
    } base_isa_e;
    typedef enum integer {
        RegFileFF = 32'h00000000,
        RegFileFPGA = 32'h00000001,
        RegFileLatch = 32'h00000002
    } regfile_e;
    typedef enum integer {
        RV32MNone = 32'h00000000,
        RV32MSlow = 32'h00000001,
        RV32MFast = 32'h00000002,
        RV32MSingleCycle = 32'h00000003
    } rv32m_e;
    typedef enum integer {
        RV32BNone = 32'h00000000,
        RV32BBalanced = 32'h00000001,
        RV32BOTEarlGrey = 32'h00000002,
        RV32BFull = 32'h00000003
    } rv32b_e;
    typedef enum integer {
        RV32Zca = 32'h00000000,
        RV32ZcaZcb = 32'h00000001,
        RV32ZcaZcmp = 32'h00000002,
        RV32ZcaZcbZcmp = 32'h00000003
    } rv32zc_e;
    typedef enum logic [6:0] {
        OPCODE_LOAD = 7'h03,
        OPCODE_MISC_MEM = 7'h0f,
        OPCODE_OP_IMM = 7'h13,
        OPCODE_AUIPC = 7'h17,
        OPCODE_STORE = 7'h23,
        OPCODE_OP = 7'h33,
        OPCODE_LUI = 7'h37,
        OPCODE_BRANCH = 7'h63,
        OPCODE_JALR = 7'h67,
        OPCODE_JAL = 7'h6f,
        OPCODE_SYSTEM = 7'h73,
        OPCODE_CHERI = 7'h5b,
        OPCODE_AUICGP = 7'h7b
    } opcode_e;
    typedef enum logic [6:0] {
        ALU_ADD = 7'h00,
        ALU_SUB = 7'h01,
        ALU_XOR = 7'h02,
        ALU_OR = 7'h03,
        ALU_AND = 7'h04,
        ALU_XNOR = 7'h05,
        ALU_ORN = 7'h06,
        ALU_ANDN = 7'h07,
        ALU_SRA = 7'h08,
        ALU_SRL = 7'h09,
        ALU_SLL = 7'h0a,
        ALU_SRO = 7'h0b,
        ALU_SLO = 7'h0c,
        ALU_ROR = 7'h0d,
        ALU_ROL = 7'h0e,
        ALU_GREV = 7'h0f,
        ALU_GORC = 7'h10,
        ALU_SHFL = 7'h11,
        ALU_UNSHFL = 7'h12,
        ALU_XPERM_N = 7'h13,
        ALU_XPERM_B = 7'h14,
        ALU_XPERM_H = 7'h15,
        ALU_SH1ADD = 7'h16,
        ALU_SH2ADD = 7'h17,
        ALU_SH3ADD = 7'h18,
        ALU_LT = 7'h19,
        ALU_LTU = 7'h1a,
        ALU_GE = 7'h1b,
        ALU_GEU = 7'h1c,
        ALU_EQ = 7'h1d,
        ALU_NE = 7'h1e,
        ALU_MIN = 7'h1f,
        ALU_MINU = 7'h20,
        ALU_MAX = 7'h21,
        ALU_MAXU = 7'h22,
        ALU_PACK = 7'h23,
        ALU_PACKU = 7'h24,
        ALU_PACKH = 7'h25,
        ALU_SEXTB = 7'h26,
        ALU_SEXTH = 7'h27,
        ALU_CLZ = 7'h28,
        ALU_CTZ = 7'h29,
        ALU_CPOP = 7'h2a,
        ALU_SLT = 7'h2b,
        ALU_SLTU = 7'h2c,
        ALU_CMOV = 7'h2d,
        ALU_CMIX = 7'h2e,
        ALU_FSL = 7'h2f,
        ALU_FSR = 7'h30,
        ALU_BSET = 7'h31,
        ALU_BCLR = 7'h32,
        ALU_BINV = 7'h33,
        ALU_BEXT = 7'h34,
        ALU_BCOMPRESS = 7'h35,
        ALU_BDECOMPRESS = 7'h36,
        ALU_BFP = 7'h37,
        ALU_CLMUL = 7'h38,
        ALU_CLMULR = 7'h39,
        ALU_CLMULH = 7'h3a,
        ALU_CRC32_B = 7'h3b,
        ALU_CRC32C_B = 7'h3c,
        ALU_CRC32_H = 7'h3d,
        ALU_CRC32C_H = 7'h3e,
        ALU_CRC32_W = 7'h3f,
        ALU_CRC32C_W = 7'h40
    } alu_op_e;
    typedef enum logic [1:0] {
        MD_OP_MULL = 2'h0,
        MD_OP_MULH = 2'h1,
        MD_OP_DIV = 2'h2,
        MD_OP_REM = 2'h3
    } md_op_e;
    typedef enum logic [1:0] {
        CSR_OP_READ = 2'h0,
        CSR_OP_WRITE = 2'h1,
        CSR_OP_SET = 2'h2,
        CSR_OP_CLEAR = 2'h3
    } csr_op_e;
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
    typedef enum logic [1:0] {
        WB_INSTR_LOAD = 2'h0,
        WB_INSTR_STORE = 2'h1,
        WB_INSTR_OTHER = 2'h2
    } wb_instr_type_e;
    typedef enum logic [1:0] {
        OP_A_REG_A = 2'h0,
        OP_A_FWD = 2'h1,
        OP_A_CURRPC = 2'h2,
        OP_A_IMM = 2'h3
    } op_a_sel_e;
    typedef enum logic {
        IMM_A_Z = 1'h0,
        IMM_A_ZERO = 1'h1
    } imm_a_sel_e;
    typedef enum logic {
        OP_B_REG_B = 1'h0,
        OP_B_IMM = 1'h1
    } op_b_sel_e;
    typedef enum logic [2:0] {
        IMM_B_I = 3'h0,
        IMM_B_S = 3'h1,
        IMM_B_B = 3'h2,
        IMM_B_U = 3'h3,
        IMM_B_J = 3'h4,
        IMM_B_INCR_PC = 3'h5,
        IMM_B_INCR_ADDR = 3'h6
    } imm_b_sel_e;
    typedef enum logic {
        RF_WD_EX = 1'h0,
        RF_WD_CSR = 1'h1
    } rf_wd_sel_e;
    typedef enum logic [3:0] {
        RESET = 4'h0,
        BOOT_SET = 4'h1,
        WAIT_SLEEP = 4'h2,
        SLEEP = 4'h3,
        FIRST_FETCH = 4'h4,
        DECODE = 4'h5,
        FLUSH = 4'h6,
        IRQ_TAKEN = 4'h7,
        DBG_TAKEN_IF = 4'h8,
        DBG_TAKEN_ID = 4'h9
    } ctrl_fsm_e;
    typedef enum logic [2:0] {
        PC_BOOT = 3'h0,
        PC_JUMP = 3'h1,
        PC_EXC = 3'h2,
        PC_ERET = 3'h3,
        PC_DRET = 3'h4,
        PC_BP = 3'h5
    } pc_sel_e;
    typedef enum logic [1:0] {
        INSTR_NOT_EXPANDED = 2'h0,
        INSTR_EXPANDED = 2'h1,
        INSTR_EXPANDED_COMMIT = 2'h2,
        INSTR_EXPANDED_LAST = 2'h3
    } instr_exp_e;
    typedef enum logic [1:0] {
        EXC_PC_EXC = 2'h0,
        EXC_PC_IRQ = 2'h1,
        EXC_PC_DBD = 2'h2,
        EXC_PC_DBG_EXC = 2'h3
    } exc_pc_sel_e;
    typedef struct packed {
        logic irq_software;
        logic irq_timer;
        logic irq_external;
        logic [14:0] irq_fast;
    } irqs_t;
    typedef struct packed {
        logic irq_int;
        logic irq_ext;
        logic [4:0] lower_cause;
    } exc_cause_t;
    typedef enum logic [4:0] {
        NMI_INT_CAUSE_ECC = 5'h00
    } nmi_int_cause_e;
    typedef enum logic [2:0] {
        DBG_CAUSE_NONE = 3'h0,
        DBG_CAUSE_EBREAK = 3'h1,
        DBG_CAUSE_TRIGGER = 3'h2,
        DBG_CAUSE_HALTREQ = 3'h3,
        DBG_CAUSE_STEP = 3'h4
    } dbg_cause_e;
    typedef enum logic [1:0] {
        PMP_ACC_EXEC = 2'h0,
        PMP_ACC_WRITE = 2'h1,
        PMP_ACC_READ = 2'h2
    } pmp_req_e;
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
    typedef enum logic [11:0] {
        CSR_MVENDORID = 12'hf11,
        CSR_MARCHID = 12'hf12,
        CSR_MIMPID = 12'hf13,
        CSR_MHARTID = 12'hf14,
        CSR_MCONFIGPTR = 12'hf15,
        CSR_MSTATUS = 12'h300,
        CSR_MISA = 12'h301,
        CSR_MIE = 12'h304,
        CSR_MTVEC = 12'h305,
        CSR_MCOUNTEREN = 12'h306,
        CSR_MSTATUSH = 12'h310,
        CSR_MENVCFG = 12'h30a,
        CSR_MENVCFGH = 12'h31a,
        CSR_MSCRATCH = 12'h340,
        CSR_MEPC = 12'h341,
        CSR_MCAUSE = 12'h342,
        CSR_MTVAL = 12'h343,
        CSR_MIP = 12'h344,
        CSR_PMPCFG0 = 12'h3a0,
        CSR_PMPCFG1 = 12'h3a1,
        CSR_PMPCFG2 = 12'h3a2,
        CSR_PMPCFG3 = 12'h3a3,
        CSR_PMPADDR0 = 12'h3b0,
        CSR_PMPADDR1 = 12'h3b1,
        CSR_PMPADDR2 = 12'h3b2,
        CSR_PMPADDR3 = 12'h3b3,
        CSR_PMPADDR4 = 12'h3b4,
        CSR_PMPADDR5 = 12'h3b5,
        CSR_PMPADDR6 = 12'h3b6,
        CSR_PMPADDR7 = 12'h3b7,
        CSR_PMPADDR8 = 12'h3b8,
        CSR_PMPADDR9 = 12'h3b9,
        CSR_PMPADDR10 = 12'h3ba,
        CSR_PMPADDR11 = 12'h3bb,
        CSR_PMPADDR12 = 12'h3bc,
        CSR_PMPADDR13 = 12'h3bd,
        CSR_PMPADDR14 = 12'h3be,
        CSR_PMPADDR15 = 12'h3bf,
        CSR_SCONTEXT = 12'h5a8,
        CSR_MSECCFG = 12'h747,
        CSR_MSECCFGH = 12'h757,
        CSR_TSELECT = 12'h7a0,
        CSR_TDATA1 = 12'h7a1,
        CSR_TDATA2 = 12'h7a2,
        CSR_TDATA3 = 12'h7a3,
        CSR_MCONTEXT = 12'h7a8,
        CSR_MSCONTEXT = 12'h7aa,
        CSR_DCSR = 12'h7b0,
        CSR_DPC = 12'h7b1,
        CSR_DSCRATCH0 = 12'h7b2,
        CSR_DSCRATCH1 = 12'h7b3,
        CSR_MCOUNTINHIBIT = 12'h320,
        CSR_MHPMEVENT3 = 12'h323,
        CSR_MHPMEVENT4 = 12'h324,
        CSR_MHPMEVENT5 = 12'h325,
        CSR_MHPMEVENT6 = 12'h326,
        CSR_MHPMEVENT7 = 12'h327,
        CSR_MHPMEVENT8 = 12'h328,
        CSR_MHPMEVENT9 = 12'h329,
        CSR_MHPMEVENT10 = 12'h32a,
        CSR_MHPMEVENT11 = 12'h32b,
        CSR_MHPMEVENT12 = 12'h32c,
        CSR_MHPMEVENT13 = 12'h32d,
        CSR_MHPMEVENT14 = 12'h32e,
        CSR_MHPMEVENT15 = 12'h32f,
        CSR_MHPMEVENT16 = 12'h330,
        CSR_MHPMEVENT17 = 12'h331,
        CSR_MHPMEVENT18 = 12'h332,
        CSR_MHPMEVENT19 = 12'h333,
        CSR_MHPMEVENT20 = 12'h334,
        CSR_MHPMEVENT21 = 12'h335,
        CSR_MHPMEVENT22 = 12'h336,
        CSR_MHPMEVENT23 = 12'h337,
        CSR_MHPMEVENT24 = 12'h338,
        CSR_MHPMEVENT25 = 12'h339,
        CSR_MHPMEVENT26 = 12'h33a,
        CSR_MHPMEVENT27 = 12'h33b,
        CSR_MHPMEVENT28 = 12'h33c,
        CSR_MHPMEVENT29 = 12'h33d,
        CSR_MHPMEVENT30 = 12'h33e,
        CSR_MHPMEVENT31 = 12'h33f,
        CSR_MCYCLE = 12'hb00,
        CSR_MINSTRET = 12'hb02,
        CSR_MHPMCOUNTER3 = 12'hb03,
        CSR_MHPMCOUNTER4 = 12'hb04,
        CSR_MHPMCOUNTER5 = 12'hb05,
        CSR_MHPMCOUNTER6 = 12'hb06,
        CSR_MHPMCOUNTER7 = 12'hb07,
        CSR_MHPMCOUNTER8 = 12'hb08,
        CSR_MHPMCOUNTER9 = 12'hb09,
        CSR_MHPMCOUNTER10 = 12'hb0a,
        CSR_MHPMCOUNTER11 = 12'hb0b,
        CSR_MHPMCOUNTER12 = 12'hb0c,
        CSR_MHPMCOUNTER13 = 12'hb0d,
        CSR_MHPMCOUNTER14 = 12'hb0e,
        CSR_MHPMCOUNTER15 = 12'hb0f,
        CSR_MHPMCOUNTER16 = 12'hb10,
        CSR_MHPMCOUNTER17 = 12'hb11,
        CSR_MHPMCOUNTER18 = 12'hb12,
        CSR_MHPMCOUNTER19 = 12'hb13,
        CSR_MHPMCOUNTER20 = 12'hb14,
        CSR_MHPMCOUNTER21 = 12'hb15,
        CSR_MHPMCOUNTER22 = 12'hb16,
        CSR_MHPMCOUNTER23 = 12'hb17,
        CSR_MHPMCOUNTER24 = 12'hb18,
        CSR_MHPMCOUNTER25 = 12'hb19,
        CSR_MHPMCOUNTER26 = 12'hb1a,
        CSR_MHPMCOUNTER27 = 12'hb1b,
        CSR_MHPMCOUNTER28 = 12'hb1c,
        CSR_MHPMCOUNTER29 = 12'hb1d,
        CSR_MHPMCOUNTER30 = 12'hb1e,
        CSR_MHPMCOUNTER31 = 12'hb1f,
        CSR_MCYCLEH = 12'hb80,
        CSR_MINSTRETH = 12'hb82,
        CSR_MHPMCOUNTER3H = 12'hb83,
        CSR_MHPMCOUNTER4H = 12'hb84,
        CSR_MHPMCOUNTER5H = 12'hb85,
        CSR_MHPMCOUNTER6H = 12'hb86,
        CSR_MHPMCOUNTER7H = 12'hb87,
        CSR_MHPMCOUNTER8H = 12'hb88,
        CSR_MHPMCOUNTER9H = 12'hb89,
        CSR_MHPMCOUNTER10H = 12'hb8a,
        CSR_MHPMCOUNTER11H = 12'hb8b,
        CSR_MHPMCOUNTER12H = 12'hb8c,
        CSR_MHPMCOUNTER13H = 12'hb8d,
        CSR_MHPMCOUNTER14H = 12'hb8e,
        CSR_MHPMCOUNTER15H = 12'hb8f,
        CSR_MHPMCOUNTER16H = 12'hb90,
        CSR_MHPMCOUNTER17H = 12'hb91,
        CSR_MHPMCOUNTER18H = 12'hb92,
        CSR_MHPMCOUNTER19H = 12'hb93,
        CSR_MHPMCOUNTER20H = 12'hb94,
        CSR_MHPMCOUNTER21H = 12'hb95,
        CSR_MHPMCOUNTER22H = 12'hb96,
        CSR_MHPMCOUNTER23H = 12'hb97,
        CSR_MHPMCOUNTER24H = 12'hb98,
        CSR_MHPMCOUNTER25H = 12'hb99,
        CSR_MHPMCOUNTER26H = 12'hb9a,
        CSR_MHPMCOUNTER27H = 12'hb9b,
        CSR_MHPMCOUNTER28H = 12'hb9c,
        CSR_MHPMCOUNTER29H = 12'hb9d,
        CSR_MHPMCOUNTER30H = 12'hb9e,
        CSR_MHPMCOUNTER31H = 12'hb9f,
        CSR_MSHWM = 12'hbc1,
        CSR_MSHWMB = 12'hbc2,
        CSR_CDBG_CTRL = 12'hbc4,
        CSR_CYCLE = 12'hc00,
        CSR_INSTRET = 12'hc02,
        CSR_HPMCOUNTER3 = 12'hc03,
        CSR_HPMCOUNTER4 = 12'hc04,
        CSR_HPMCOUNTER5 = 12'hc05,
        CSR_HPMCOUNTER6 = 12'hc06,
        CSR_HPMCOUNTER7 = 12'hc07,
        CSR_HPMCOUNTER8 = 12'hc08,
        CSR_HPMCOUNTER9 = 12'hc09,
        CSR_HPMCOUNTER10 = 12'hc0a,
        CSR_HPMCOUNTER11 = 12'hc0b,
        CSR_HPMCOUNTER12 = 12'hc0c,
        CSR_HPMCOUNTER13 = 12'hc0d,
        CSR_HPMCOUNTER14 = 12'hc0e,
        CSR_HPMCOUNTER15 = 12'hc0f,
        CSR_HPMCOUNTER16 = 12'hc10,
        CSR_HPMCOUNTER17 = 12'hc11,
        CSR_HPMCOUNTER18 = 12'hc12,
        CSR_HPMCOUNTER19 = 12'hc13,
        CSR_HPMCOUNTER20 = 12'hc14,
        CSR_HPMCOUNTER21 = 12'hc15,
        CSR_HPMCOUNTER22 = 12'hc16,
        CSR_HPMCOUNTER23 = 12'hc17,
        CSR_HPMCOUNTER24 = 12'hc18,
        CSR_HPMCOUNTER25 = 12'hc19,
        CSR_HPMCOUNTER26 = 12'hc1a,
        CSR_HPMCOUNTER27 = 12'hc1b,
        CSR_HPMCOUNTER28 = 12'hc1c,
        CSR_HPMCOUNTER29 = 12'hc1d,
        CSR_HPMCOUNTER30 = 12'hc1e,
        CSR_HPMCOUNTER31 = 12'hc1f,
        CSR_CYCLEH = 12'hc80,
        CSR_INSTRETH = 12'hc82,
        CSR_HPMCOUNTER3H = 12'hc83,
        CSR_HPMCOUNTER4H = 12'hc84,
        CSR_HPMCOUNTER5H = 12'hc85,
        CSR_HPMCOUNTER6H = 12'hc86,
        CSR_HPMCOUNTER7H = 12'hc87,
        CSR_HPMCOUNTER8H = 12'hc88,
        CSR_HPMCOUNTER9H = 12'hc89,
        CSR_HPMCOUNTER10H = 12'hc8a,
        CSR_HPMCOUNTER11H = 12'hc8b,
        CSR_HPMCOUNTER12H = 12'hc8c,
        CSR_HPMCOUNTER13H = 12'hc8d,
        CSR_HPMCOUNTER14H = 12'hc8e,
        CSR_HPMCOUNTER15H = 12'hc8f,
        CSR_HPMCOUNTER16H = 12'hc90,
        CSR_HPMCOUNTER17H = 12'hc91,
        CSR_HPMCOUNTER18H = 12'hc92,
        CSR_HPMCOUNTER19H = 12'hc93,
        CSR_HPMCOUNTER20H = 12'hc94,
        CSR_HPMCOUNTER21H = 12'hc95,
        CSR_HPMCOUNTER22H = 12'hc96,
        CSR_HPMCOUNTER23H = 12'hc97,
        CSR_HPMCOUNTER24H = 12'hc98,
        CSR_HPMCOUNTER25H = 12'hc99,
        CSR_HPMCOUNTER26H = 12'hc9a,
        CSR_HPMCOUNTER27H = 12'hc9b,
        CSR_HPMCOUNTER28H = 12'hc9c,
        CSR_HPMCOUNTER29H = 12'hc9d,
        CSR_HPMCOUNTER30H = 12'hc9e,
        CSR_HPMCOUNTER31H = 12'hc9f,
        CSR_CPUCTRLSTS = 12'h7c0,
        CSR_SECURESEED = 12'h7c1
    } csr_num_e;
    typedef logic [31:0] lfsr_seed_t;
    typedef logic [31:0][4:0] lfsr_perm_t;
    typedef logic [3:0] ibex_mubi_t;
    typedef enum logic [3:0] {
        IDLE = 4'h0,
        WAIT_GNT_MIS = 4'h1,
        WAIT_RVALID_MIS = 4'h2,
        WAIT_GNT = 4'h3,
        WAIT_RVALID_MIS_GNTS_DONE = 4'h4,
        CTX_WAIT_GNT1 = 4'h5,
        CTX_WAIT_GNT2 = 4'h6,
        CTX_WAIT_RESP = 4'h7
    } ls_fsm_e;
    typedef enum logic [2:0] {
        CRX_IDLE = 3'h0,
        CRX_WAIT_RESP1 = 3'h1,
        CRX_WAIT_RESP2 = 3'h2
    } cap_rx_fsm_t;
endpackage

package ibex_cheriot_pkg;
    typedef logic [8:0] cbound_t;
    typedef logic [3:0] cexp_t;
    typedef logic [4:0] exp_t;
    typedef logic [2:0] otype_t;
    typedef logic [5:0] cperms_t;
    typedef logic [1:0] cap_cor_t;
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
        cap_cor_t cap_cor;
        logic valid;
        logic rsvd;
        cperms_t cperms;
        otype_t otype;
        cexp_t cexp;
        cbound_t top;
        cbound_t base;
    } cap_t;
    typedef struct packed {
        logic [32:0] top33;
        logic [31:0] base32;
        perms_t perms;
        cap_cor_t cap_cor;
        logic valid;
        logic rsvd;
        cperms_t cperms;
        otype_t otype;
        cexp_t cexp;
        cbound_t top;
        cbound_t base;
    } decoded_cap_t;
    typedef struct packed {
        logic [32:0] top33req;
        exp_t exp1;
        exp_t exp2;
        logic [5:0] explen;
        logic [5:0] expb;
        logic in_bound;
    } bound_req_t;
    typedef struct packed {
        decoded_cap_t cap;
        logic [31:0] maska;
        logic [31:0] rlen;
    } bound_result_t;
    typedef struct packed {
        logic CTAG;
        logic SD_LM;
        logic GL_LG;
    } cap_clrperm_t;
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
    typedef enum logic [2:0] {
        CFIELD_PERM = 3'h0,
        CFIELD_TYPE = 3'h1,
        CFIELD_BASE = 3'h2,
        CFIELD_LEN = 3'h3,
        CFIELD_TAG = 3'h4,
        CFIELD_ADDR = 3'h5,
        CFIELD_HIGH = 3'h6,
        CFIELD_TOP = 3'h7
    } cheriot_cap_field_e;
    typedef enum logic [2:0] {
        CHERIOT_ADDER_A_ZERO = 3'h0,
        CHERIOT_ADDER_A_IMM12 = 3'h1,
        CHERIOT_ADDER_A_IMM21 = 3'h2,
        CHERIOT_ADDER_A_IMM20 = 3'h3,
        CHERIOT_ADDER_A_RS2 = 3'h4
    } cheriot_adder_a_sel_e;
    typedef enum logic [1:0] {
        CHERIOT_ADDER_B_ZERO = 2'h0,
        CHERIOT_ADDER_B_RS1 = 2'h1,
        CHERIOT_ADDER_B_PC = 2'h2
    } cheriot_adder_b_sel_e;
    typedef enum logic [2:0] {
        SETADDR_NONE = 3'h0,
        SETADDR_PCC_PCNXT = 3'h1,
        SETADDR_PCC_ARITH = 3'h2,
        SETADDR_RFA_ARITH = 3'h3,
        SETADDR_SCR = 3'h4
    } cheriot_setaddr_sel_e;
    typedef enum logic [2:0] {
        SETBOUNDS_NONE = 3'h0,
        SETBOUNDS_RS2 = 3'h1,
        SETBOUNDS_RNDN = 3'h2,
        SETBOUNDS_RS2_EX = 3'h3,
        SETBOUNDS_IMM = 3'h4,
        SETBOUNDS_CRRL = 3'h5,
        SETBOUNDS_CRAM = 3'h6
    } cheriot_setbounds_sel_e;
    typedef enum logic [4:0] {
        CHERIOT_CSR_NULL = 5'h00,
        CHERIOT_CSR_RW = 5'h01
    } cheriot_csr_op_e;
endpackage

package types;
    typedef enum logic [2:0] {
        CmIdle = 3'h0,
        CmPushStoreReg = 3'h1,
        CmPushDecrSp = 3'h2,
        CmPopLoadReg = 3'h3,
        CmPopIncrSp = 3'h4,
        CmPopZeroA0 = 3'h5,
        CmPopRetRa = 3'h6,
        CmMvSecondReg = 3'h7
    } \ibex_compressed_decoder.cm_state_e ;
    typedef enum logic {
        FIRST_CYCLE = 1'h0,
        MULTI_CYCLE = 1'h1
    } \ibex_id_stage.id_fsm_e ;
    typedef enum logic [2:0] {
        MD_IDLE = 3'h0,
        MD_ABS_A = 3'h1,
        MD_ABS_B = 3'h2,
        MD_COMP = 3'h3,
        MD_LAST = 3'h4,
        MD_CHANGE_SIGN = 3'h5,
        MD_FINISH = 3'h6
    } \ibex_multdiv_fast.md_fsm_e ;
    typedef enum logic {
        MULL = 1'h0,
        MULH = 1'h1
    } \ibex_multdiv_fast.gen_mult_single_cycle.mult_fsm_e ;
    typedef enum logic [1:0] {
        ALBL = 2'h0,
        ALBH = 2'h1,
        AHBL = 2'h2,
        AHBH = 2'h3
    } \ibex_multdiv_fast.gen_mult_fast.mult_fsm_e ;
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
    typedef struct packed {
        logic valid;
        logic is_read;
    } \ibex_top.pending_access_t ;
endpackage
