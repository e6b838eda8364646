// Types of a type file, declared in SystemVerilog (IEEE 1800-2017). A type file has no signs,
// no bounds of queues, and of a class no methods, constraints and parameters. A name that is
// taken, or missing, has the id of its type at the end.
package types;
    // type 0: packed array "integer": predefined
    // type 1: packed array "int": predefined
    // type 2: sequential enumeration "logic": predefined
    // type 3: packed array ""
    typedef logic [3:0] type_3;
    // type 4: discrete enumeration "prim_mubi_pkg::mubi4_t"
    typedef enum logic [3:0] {
        MuBi4True = 4'h6,
        MuBi4False = 4'h9
    } \prim_mubi_pkg::mubi4_t ;
    // type 5: typedef "prim_mubi_pkg::mubi4_t": declared as type 4
    // type 6: sequential enumeration "bit": predefined
    // type 7: unpacked array ""
    typedef bit type_7 [0:0];
    // type 8: packed array ""
    typedef logic [7:0] type_8;
    // type 9: discrete enumeration "prim_mubi_pkg::mubi8_t"
    typedef enum logic [7:0] {
        MuBi8True = 8'h96,
        MuBi8False = 8'h69
    } \prim_mubi_pkg::mubi8_t ;
    // type 10: typedef "prim_mubi_pkg::mubi8_t": declared as type 9
    // type 11: packed array ""
    typedef logic [11:0] type_11;
    // type 12: discrete enumeration "prim_mubi_pkg::mubi12_t"
    typedef enum logic [11:0] {
        MuBi12True = 12'h696,
        MuBi12False = 12'h969
    } \prim_mubi_pkg::mubi12_t ;
    // type 13: typedef "prim_mubi_pkg::mubi12_t": declared as type 12
    // type 14: packed array ""
    typedef logic [15:0] type_14;
    // type 15: discrete enumeration "prim_mubi_pkg::mubi16_t"
    typedef enum logic [15:0] {
        MuBi16True = 16'h9696,
        MuBi16False = 16'h6969
    } \prim_mubi_pkg::mubi16_t ;
    // type 16: typedef "prim_mubi_pkg::mubi16_t": declared as type 15
    // type 17: packed array ""
    typedef logic [19:0] type_17;
    // type 18: discrete enumeration "prim_mubi_pkg::mubi20_t"
    typedef enum logic [19:0] {
        MuBi20True = 20'h69696,
        MuBi20False = 20'h96969
    } \prim_mubi_pkg::mubi20_t ;
    // type 19: typedef "prim_mubi_pkg::mubi20_t": declared as type 18
    // type 20: packed array ""
    typedef logic [23:0] type_20;
    // type 21: discrete enumeration "prim_mubi_pkg::mubi24_t"
    typedef enum logic [23:0] {
        MuBi24True = 24'h969696,
        MuBi24False = 24'h696969
    } \prim_mubi_pkg::mubi24_t ;
    // type 22: typedef "prim_mubi_pkg::mubi24_t": declared as type 21
    // type 23: packed array ""
    typedef logic [27:0] type_23;
    // type 24: discrete enumeration "prim_mubi_pkg::mubi28_t"
    typedef enum logic [27:0] {
        MuBi28True = 28'h6969696,
        MuBi28False = 28'h9696969
    } \prim_mubi_pkg::mubi28_t ;
    // type 25: typedef "prim_mubi_pkg::mubi28_t": declared as type 24
    // type 26: packed array ""
    typedef logic [31:0] type_26;
    // type 27: discrete enumeration "prim_mubi_pkg::mubi32_t"
    typedef enum logic [31:0] {
        MuBi32True = 32'h96969696,
        MuBi32False = 32'h69696969
    } \prim_mubi_pkg::mubi32_t ;
    // type 28: typedef "prim_mubi_pkg::mubi32_t": declared as type 27
    // type 29: discrete enumeration "prim_secded_pkg::prim_secded_type_e"
    typedef enum int {
        SecdedHsiao = 32'h00000000,
        SecdedHamming = 32'h00000001,
        SecdedInvHsiao = 32'h00000002,
        SecdedInvHamming = 32'h00000003
    } \prim_secded_pkg::prim_secded_type_e ;
    // type 30: typedef "prim_secded_pkg::prim_secded_type_e": declared as type 29
    // type 31: discrete enumeration "prim_secded_pkg::prim_secded_e"
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
    } \prim_secded_pkg::prim_secded_e ;
    // type 32: typedef "prim_secded_pkg::prim_secded_e": declared as type 31
    // type 33: packed array ""
    typedef logic [5:0] type_33;
    // type 34: packed array ""
    typedef logic [21:0] type_34;
    // type 35: packed array ""
    typedef logic [1:0] type_35;
    // type 36: packed struct "prim_secded_pkg::secded_22_16_t"
    typedef struct packed {
        logic [15:0] data;
        logic [5:0] syndrome;
        logic [1:0] err;
    } \prim_secded_pkg::secded_22_16_t ;
    // type 37: typedef "prim_secded_pkg::secded_22_16_t": declared as type 36
    // type 38: packed struct "prim_secded_pkg::secded_28_22_t"
    typedef struct packed {
        logic [21:0] data;
        logic [5:0] syndrome;
        logic [1:0] err;
    } \prim_secded_pkg::secded_28_22_t ;
    // type 39: typedef "prim_secded_pkg::secded_28_22_t": declared as type 38
    // type 40: packed array ""
    typedef logic [6:0] type_40;
    // type 41: packed array ""
    typedef logic [38:0] type_41;
    // type 42: packed struct "prim_secded_pkg::secded_39_32_t"
    typedef struct packed {
        logic [31:0] data;
        logic [6:0] syndrome;
        logic [1:0] err;
    } \prim_secded_pkg::secded_39_32_t ;
    // type 43: typedef "prim_secded_pkg::secded_39_32_t": declared as type 42
    // type 44: packed array ""
    typedef logic [63:0] type_44;
    // type 45: packed array ""
    typedef logic [56:0] type_45;
    // type 46: packed struct "prim_secded_pkg::secded_64_57_t"
    typedef struct packed {
        logic [56:0] data;
        logic [6:0] syndrome;
        logic [1:0] err;
    } \prim_secded_pkg::secded_64_57_t ;
    // type 47: typedef "prim_secded_pkg::secded_64_57_t": declared as type 46
    // type 48: packed array ""
    typedef logic [71:0] type_48;
    // type 49: packed struct "prim_secded_pkg::secded_72_64_t"
    typedef struct packed {
        logic [63:0] data;
        logic [7:0] syndrome;
        logic [1:0] err;
    } \prim_secded_pkg::secded_72_64_t ;
    // type 50: typedef "prim_secded_pkg::secded_72_64_t": declared as type 49
    // type 51: packed struct "prim_secded_pkg::secded_hamming_22_16_t"
    typedef struct packed {
        logic [15:0] data;
        logic [5:0] syndrome;
        logic [1:0] err;
    } \prim_secded_pkg::secded_hamming_22_16_t ;
    // type 52: typedef "prim_secded_pkg::secded_hamming_22_16_t": declared as type 51
    // type 53: packed struct "prim_secded_pkg::secded_hamming_39_32_t"
    typedef struct packed {
        logic [31:0] data;
        logic [6:0] syndrome;
        logic [1:0] err;
    } \prim_secded_pkg::secded_hamming_39_32_t ;
    // type 54: typedef "prim_secded_pkg::secded_hamming_39_32_t": declared as type 53
    // type 55: packed struct "prim_secded_pkg::secded_hamming_72_64_t"
    typedef struct packed {
        logic [63:0] data;
        logic [7:0] syndrome;
        logic [1:0] err;
    } \prim_secded_pkg::secded_hamming_72_64_t ;
    // type 56: typedef "prim_secded_pkg::secded_hamming_72_64_t": declared as type 55
    // type 57: packed array ""
    typedef logic [75:0] type_57;
    // type 58: packed array ""
    typedef logic [67:0] type_58;
    // type 59: packed struct "prim_secded_pkg::secded_hamming_76_68_t"
    typedef struct packed {
        logic [67:0] data;
        logic [7:0] syndrome;
        logic [1:0] err;
    } \prim_secded_pkg::secded_hamming_76_68_t ;
    // type 60: typedef "prim_secded_pkg::secded_hamming_76_68_t": declared as type 59
    // type 61: packed struct "prim_secded_pkg::secded_inv_22_16_t"
    typedef struct packed {
        logic [15:0] data;
        logic [5:0] syndrome;
        logic [1:0] err;
    } \prim_secded_pkg::secded_inv_22_16_t ;
    // type 62: typedef "prim_secded_pkg::secded_inv_22_16_t": declared as type 61
    // type 63: packed struct "prim_secded_pkg::secded_inv_28_22_t"
    typedef struct packed {
        logic [21:0] data;
        logic [5:0] syndrome;
        logic [1:0] err;
    } \prim_secded_pkg::secded_inv_28_22_t ;
    // type 64: typedef "prim_secded_pkg::secded_inv_28_22_t": declared as type 63
    // type 65: packed struct "prim_secded_pkg::secded_inv_39_32_t"
    typedef struct packed {
        logic [31:0] data;
        logic [6:0] syndrome;
        logic [1:0] err;
    } \prim_secded_pkg::secded_inv_39_32_t ;
    // type 66: typedef "prim_secded_pkg::secded_inv_39_32_t": declared as type 65
    // type 67: packed struct "prim_secded_pkg::secded_inv_64_57_t"
    typedef struct packed {
        logic [56:0] data;
        logic [6:0] syndrome;
        logic [1:0] err;
    } \prim_secded_pkg::secded_inv_64_57_t ;
    // type 68: typedef "prim_secded_pkg::secded_inv_64_57_t": declared as type 67
    // type 69: packed struct "prim_secded_pkg::secded_inv_72_64_t"
    typedef struct packed {
        logic [63:0] data;
        logic [7:0] syndrome;
        logic [1:0] err;
    } \prim_secded_pkg::secded_inv_72_64_t ;
    // type 70: typedef "prim_secded_pkg::secded_inv_72_64_t": declared as type 69
    // type 71: packed struct "prim_secded_pkg::secded_inv_hamming_22_16_t"
    typedef struct packed {
        logic [15:0] data;
        logic [5:0] syndrome;
        logic [1:0] err;
    } \prim_secded_pkg::secded_inv_hamming_22_16_t ;
    // type 72: typedef "prim_secded_pkg::secded_inv_hamming_22_16_t": declared as type 71
    // type 73: packed struct "prim_secded_pkg::secded_inv_hamming_39_32_t"
    typedef struct packed {
        logic [31:0] data;
        logic [6:0] syndrome;
        logic [1:0] err;
    } \prim_secded_pkg::secded_inv_hamming_39_32_t ;
    // type 74: typedef "prim_secded_pkg::secded_inv_hamming_39_32_t": declared as type 73
    // type 75: packed struct "prim_secded_pkg::secded_inv_hamming_72_64_t"
    typedef struct packed {
        logic [63:0] data;
        logic [7:0] syndrome;
        logic [1:0] err;
    } \prim_secded_pkg::secded_inv_hamming_72_64_t ;
    // type 76: typedef "prim_secded_pkg::secded_inv_hamming_72_64_t": declared as type 75
    // type 77: packed struct "prim_secded_pkg::secded_inv_hamming_76_68_t"
    typedef struct packed {
        logic [67:0] data;
        logic [7:0] syndrome;
        logic [1:0] err;
    } \prim_secded_pkg::secded_inv_hamming_76_68_t ;
    // type 78: typedef "prim_secded_pkg::secded_inv_hamming_76_68_t": declared as type 77
    // type 79: typedef "prim_count_pkg::action_mask_t"
    typedef logic [3:0] \prim_count_pkg::action_mask_t ;
    // type 80: discrete enumeration "prim_count_pkg::action_e"
    typedef enum \prim_count_pkg::action_mask_t {
        Clr = 4'h1,
        Set = 4'h2,
        Incr = 4'h4,
        Decr = 4'h8
    } \prim_count_pkg::action_e ;
    // type 81: typedef "prim_count_pkg::action_e": declared as type 80
    // type 82: packed array ""
    typedef logic [15:0][3:0] type_82;
    // type 83: packed array ""
    typedef logic [11:0][63:0] type_83;
    // type 84: packed array ""
    typedef logic [4:0] type_84;
    // type 85: packed array ""
    typedef logic [31:0][4:0] type_85;
    // type 86: packed array ""
    typedef logic [63:0][5:0] type_86;
    // type 87: packed array ""
    typedef logic [79:0] type_87;
    // type 88: packed array ""
    typedef logic [127:0] type_88;
    // type 89: packed array "int": predefined
    // type 90: packed array ""
    typedef logic [2:0] type_90;
    // type 91: packed array ""
    typedef logic [7:0][2:0] type_91;
    // type 92: packed struct "prim_ram_1p_pkg::ram_1p_cfg_req_t"
    typedef struct packed {
        logic [11:0] req;
    } \prim_ram_1p_pkg::ram_1p_cfg_req_t ;
    // type 93: typedef "prim_ram_1p_pkg::ram_1p_cfg_req_t": declared as type 92
    // type 94: packed array ""
    typedef logic [0:0] type_94;
    // type 95: packed struct "prim_ram_1p_pkg::ram_1p_cfg_rsp_t"
    typedef struct packed {
        logic [0:0] rsp;
    } \prim_ram_1p_pkg::ram_1p_cfg_rsp_t ;
    // type 96: typedef "prim_ram_1p_pkg::ram_1p_cfg_rsp_t": declared as type 95
    // type 97: packed array ""
    typedef logic [55:0] type_97;
    // type 98: packed struct "ibex_pkg::crash_dump_t"
    typedef struct packed {
        logic [31:0] current_pc;
        logic [31:0] next_pc;
        logic [31:0] last_data_addr;
        logic [31:0] exception_pc;
        logic [31:0] exception_addr;
    } \ibex_pkg::crash_dump_t ;
    // type 99: typedef "ibex_pkg::crash_dump_t": declared as type 98
    // type 100: packed struct "ibex_pkg::core2rf_t"
    typedef struct packed {
        logic dummy_instr_id;
        logic [4:0] raddr_a;
        logic [4:0] waddr_a;
        logic we_a;
        logic [4:0] raddr_b;
    } \ibex_pkg::core2rf_t ;
    // type 101: typedef "ibex_pkg::core2rf_t": declared as type 100
    // type 102: discrete enumeration "ibex_pkg::base_isa_e"
    typedef enum integer {
        BaseIsaRV32I = 32'h00000000,
        BaseIsaRV32IorCHERIoT = 32'h00000001
    } \ibex_pkg::base_isa_e ;
    // type 103: typedef "ibex_pkg::base_isa_e": declared as type 102
    // type 104: discrete enumeration "ibex_pkg::regfile_e"
    typedef enum integer {
        RegFileFF = 32'h00000000,
        RegFileFPGA = 32'h00000001,
        RegFileLatch = 32'h00000002
    } \ibex_pkg::regfile_e ;
    // type 105: typedef "ibex_pkg::regfile_e": declared as type 104
    // type 106: discrete enumeration "ibex_pkg::rv32m_e"
    typedef enum integer {
        RV32MNone = 32'h00000000,
        RV32MSlow = 32'h00000001,
        RV32MFast = 32'h00000002,
        RV32MSingleCycle = 32'h00000003
    } \ibex_pkg::rv32m_e ;
    // type 107: typedef "ibex_pkg::rv32m_e": declared as type 106
    // type 108: discrete enumeration "ibex_pkg::rv32b_e"
    typedef enum integer {
        RV32BNone = 32'h00000000,
        RV32BBalanced = 32'h00000001,
        RV32BOTEarlGrey = 32'h00000002,
        RV32BFull = 32'h00000003
    } \ibex_pkg::rv32b_e ;
    // type 109: typedef "ibex_pkg::rv32b_e": declared as type 108
    // type 110: discrete enumeration "ibex_pkg::rv32zc_e"
    typedef enum integer {
        RV32Zca = 32'h00000000,
        RV32ZcaZcb = 32'h00000001,
        RV32ZcaZcmp = 32'h00000002,
        RV32ZcaZcbZcmp = 32'h00000003
    } \ibex_pkg::rv32zc_e ;
    // type 111: typedef "ibex_pkg::rv32zc_e": declared as type 110
    // type 112: discrete enumeration "ibex_pkg::opcode_e"
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
    } \ibex_pkg::opcode_e ;
    // type 113: typedef "ibex_pkg::opcode_e": declared as type 112
    // type 114: discrete enumeration "ibex_pkg::alu_op_e"
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
    } \ibex_pkg::alu_op_e ;
    // type 115: typedef "ibex_pkg::alu_op_e": declared as type 114
    // type 116: discrete enumeration "ibex_pkg::md_op_e"
    typedef enum logic [1:0] {
        MD_OP_MULL = 2'h0,
        MD_OP_MULH = 2'h1,
        MD_OP_DIV = 2'h2,
        MD_OP_REM = 2'h3
    } \ibex_pkg::md_op_e ;
    // type 117: typedef "ibex_pkg::md_op_e": declared as type 116
    // type 118: discrete enumeration "ibex_pkg::csr_op_e"
    typedef enum logic [1:0] {
        CSR_OP_READ = 2'h0,
        CSR_OP_WRITE = 2'h1,
        CSR_OP_SET = 2'h2,
        CSR_OP_CLEAR = 2'h3
    } \ibex_pkg::csr_op_e ;
    // type 119: typedef "ibex_pkg::csr_op_e": declared as type 118
    // type 120: discrete enumeration "ibex_pkg::priv_lvl_e"
    typedef enum logic [1:0] {
        PRIV_LVL_M = 2'h3,
        PRIV_LVL_H = 2'h2,
        PRIV_LVL_S = 2'h1,
        PRIV_LVL_U = 2'h0
    } \ibex_pkg::priv_lvl_e ;
    // type 121: typedef "ibex_pkg::priv_lvl_e": declared as type 120
    // type 122: discrete enumeration "ibex_pkg::x_debug_ver_e"
    typedef enum logic [3:0] {
        XDEBUGVER_NO = 4'h0,
        XDEBUGVER_STD = 4'h4,
        XDEBUGVER_NONSTD = 4'hf
    } \ibex_pkg::x_debug_ver_e ;
    // type 123: typedef "ibex_pkg::x_debug_ver_e": declared as type 122
    // type 124: discrete enumeration "ibex_pkg::wb_instr_type_e"
    typedef enum logic [1:0] {
        WB_INSTR_LOAD = 2'h0,
        WB_INSTR_STORE = 2'h1,
        WB_INSTR_OTHER = 2'h2
    } \ibex_pkg::wb_instr_type_e ;
    // type 125: typedef "ibex_pkg::wb_instr_type_e": declared as type 124
    // type 126: discrete enumeration "ibex_pkg::op_a_sel_e"
    typedef enum logic [1:0] {
        OP_A_REG_A = 2'h0,
        OP_A_FWD = 2'h1,
        OP_A_CURRPC = 2'h2,
        OP_A_IMM = 2'h3
    } \ibex_pkg::op_a_sel_e ;
    // type 127: typedef "ibex_pkg::op_a_sel_e": declared as type 126
    // type 128: discrete enumeration "ibex_pkg::imm_a_sel_e"
    typedef enum logic {
        IMM_A_Z = 1'h0,
        IMM_A_ZERO = 1'h1
    } \ibex_pkg::imm_a_sel_e ;
    // type 129: typedef "ibex_pkg::imm_a_sel_e": declared as type 128
    // type 130: discrete enumeration "ibex_pkg::op_b_sel_e"
    typedef enum logic {
        OP_B_REG_B = 1'h0,
        OP_B_IMM = 1'h1
    } \ibex_pkg::op_b_sel_e ;
    // type 131: typedef "ibex_pkg::op_b_sel_e": declared as type 130
    // type 132: discrete enumeration "ibex_pkg::imm_b_sel_e"
    typedef enum logic [2:0] {
        IMM_B_I = 3'h0,
        IMM_B_S = 3'h1,
        IMM_B_B = 3'h2,
        IMM_B_U = 3'h3,
        IMM_B_J = 3'h4,
        IMM_B_INCR_PC = 3'h5,
        IMM_B_INCR_ADDR = 3'h6
    } \ibex_pkg::imm_b_sel_e ;
    // type 133: typedef "ibex_pkg::imm_b_sel_e": declared as type 132
    // type 134: discrete enumeration "ibex_pkg::rf_wd_sel_e"
    typedef enum logic {
        RF_WD_EX = 1'h0,
        RF_WD_CSR = 1'h1
    } \ibex_pkg::rf_wd_sel_e ;
    // type 135: typedef "ibex_pkg::rf_wd_sel_e": declared as type 134
    // type 136: discrete enumeration "ibex_pkg::ctrl_fsm_e"
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
    } \ibex_pkg::ctrl_fsm_e ;
    // type 137: typedef "ibex_pkg::ctrl_fsm_e": declared as type 136
    // type 138: discrete enumeration "ibex_pkg::pc_sel_e"
    typedef enum logic [2:0] {
        PC_BOOT = 3'h0,
        PC_JUMP = 3'h1,
        PC_EXC = 3'h2,
        PC_ERET = 3'h3,
        PC_DRET = 3'h4,
        PC_BP = 3'h5
    } \ibex_pkg::pc_sel_e ;
    // type 139: typedef "ibex_pkg::pc_sel_e": declared as type 138
    // type 140: discrete enumeration "ibex_pkg::instr_exp_e"
    typedef enum logic [1:0] {
        INSTR_NOT_EXPANDED = 2'h0,
        INSTR_EXPANDED = 2'h1,
        INSTR_EXPANDED_COMMIT = 2'h2,
        INSTR_EXPANDED_LAST = 2'h3
    } \ibex_pkg::instr_exp_e ;
    // type 141: typedef "ibex_pkg::instr_exp_e": declared as type 140
    // type 142: discrete enumeration "ibex_pkg::exc_pc_sel_e"
    typedef enum logic [1:0] {
        EXC_PC_EXC = 2'h0,
        EXC_PC_IRQ = 2'h1,
        EXC_PC_DBD = 2'h2,
        EXC_PC_DBG_EXC = 2'h3
    } \ibex_pkg::exc_pc_sel_e ;
    // type 143: typedef "ibex_pkg::exc_pc_sel_e": declared as type 142
    // type 144: packed array ""
    typedef logic [14:0] type_144;
    // type 145: packed struct "ibex_pkg::irqs_t"
    typedef struct packed {
        logic irq_software;
        logic irq_timer;
        logic irq_external;
        logic [14:0] irq_fast;
    } \ibex_pkg::irqs_t ;
    // type 146: typedef "ibex_pkg::irqs_t": declared as type 145
    // type 147: packed struct "ibex_pkg::exc_cause_t"
    typedef struct packed {
        logic irq_int;
        logic irq_ext;
        logic [4:0] lower_cause;
    } \ibex_pkg::exc_cause_t ;
    // type 148: typedef "ibex_pkg::exc_cause_t": declared as type 147
    // type 149: discrete enumeration "ibex_pkg::nmi_int_cause_e"
    typedef enum logic [4:0] {
        NMI_INT_CAUSE_ECC = 5'h00
    } \ibex_pkg::nmi_int_cause_e ;
    // type 150: typedef "ibex_pkg::nmi_int_cause_e": declared as type 149
    // type 151: discrete enumeration "ibex_pkg::dbg_cause_e"
    typedef enum logic [2:0] {
        DBG_CAUSE_NONE = 3'h0,
        DBG_CAUSE_EBREAK = 3'h1,
        DBG_CAUSE_TRIGGER = 3'h2,
        DBG_CAUSE_HALTREQ = 3'h3,
        DBG_CAUSE_STEP = 3'h4
    } \ibex_pkg::dbg_cause_e ;
    // type 152: typedef "ibex_pkg::dbg_cause_e": declared as type 151
    // type 153: discrete enumeration "ibex_pkg::pmp_req_e"
    typedef enum logic [1:0] {
        PMP_ACC_EXEC = 2'h0,
        PMP_ACC_WRITE = 2'h1,
        PMP_ACC_READ = 2'h2
    } \ibex_pkg::pmp_req_e ;
    // type 154: typedef "ibex_pkg::pmp_req_e": declared as type 153
    // type 155: discrete enumeration "ibex_pkg::pmp_cfg_mode_e"
    typedef enum logic [1:0] {
        PMP_MODE_OFF = 2'h0,
        PMP_MODE_TOR = 2'h1,
        PMP_MODE_NA4 = 2'h2,
        PMP_MODE_NAPOT = 2'h3
    } \ibex_pkg::pmp_cfg_mode_e ;
    // type 156: typedef "ibex_pkg::pmp_cfg_mode_e": declared as type 155
    // type 157: packed struct "ibex_pkg::pmp_cfg_t"
    typedef struct packed {
        logic lock;
        \ibex_pkg::pmp_cfg_mode_e mode;
        logic exec;
        logic write;
        logic read;
    } \ibex_pkg::pmp_cfg_t ;
    // type 158: typedef "ibex_pkg::pmp_cfg_t": declared as type 157
    // type 159: packed struct "ibex_pkg::pmp_mseccfg_t"
    typedef struct packed {
        logic rlb;
        logic mmwp;
        logic mml;
    } \ibex_pkg::pmp_mseccfg_t ;
    // type 160: typedef "ibex_pkg::pmp_mseccfg_t": declared as type 159
    // type 161: discrete enumeration "ibex_pkg::csr_num_e"
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
    } \ibex_pkg::csr_num_e ;
    // type 162: typedef "ibex_pkg::csr_num_e": declared as type 161
    // type 163: typedef "ibex_pkg::lfsr_seed_t"
    typedef logic [31:0] \ibex_pkg::lfsr_seed_t ;
    // type 164: typedef "ibex_pkg::lfsr_perm_t"
    typedef logic [31:0][4:0] \ibex_pkg::lfsr_perm_t ;
    // type 165: typedef "ibex_pkg::ibex_mubi_t"
    typedef logic [3:0] \ibex_pkg::ibex_mubi_t ;
    // type 166: unpacked array ""
    typedef \ibex_pkg::pmp_cfg_t type_166 [0:15];
    // type 167: packed array ""
    typedef logic [33:0] type_167;
    // type 168: unpacked array ""
    typedef logic [33:0] type_168 [0:15];
    // type 169: discrete enumeration "ibex_pkg::ls_fsm_e"
    typedef enum logic [3:0] {
        IDLE = 4'h0,
        WAIT_GNT_MIS = 4'h1,
        WAIT_RVALID_MIS = 4'h2,
        WAIT_GNT = 4'h3,
        WAIT_RVALID_MIS_GNTS_DONE = 4'h4,
        CTX_WAIT_GNT1 = 4'h5,
        CTX_WAIT_GNT2 = 4'h6,
        CTX_WAIT_RESP = 4'h7
    } \ibex_pkg::ls_fsm_e ;
    // type 170: typedef "ibex_pkg::ls_fsm_e": declared as type 169
    // type 171: discrete enumeration "ibex_pkg::cap_rx_fsm_t"
    typedef enum logic [2:0] {
        CRX_IDLE = 3'h0,
        CRX_WAIT_RESP1 = 3'h1,
        CRX_WAIT_RESP2 = 3'h2
    } \ibex_pkg::cap_rx_fsm_t ;
    // type 172: typedef "ibex_pkg::cap_rx_fsm_t": declared as type 171
    // type 173: packed array ""
    typedef logic [8:0] type_173;
    // type 174: typedef "ibex_cheriot_pkg::cbound_t"
    typedef logic [8:0] \ibex_cheriot_pkg::cbound_t ;
    // type 175: typedef "ibex_cheriot_pkg::cexp_t"
    typedef logic [3:0] \ibex_cheriot_pkg::cexp_t ;
    // type 176: typedef "ibex_cheriot_pkg::exp_t"
    typedef logic [4:0] \ibex_cheriot_pkg::exp_t ;
    // type 177: typedef "ibex_cheriot_pkg::otype_t"
    typedef logic [2:0] \ibex_cheriot_pkg::otype_t ;
    // type 178: typedef "ibex_cheriot_pkg::cperms_t"
    typedef logic [5:0] \ibex_cheriot_pkg::cperms_t ;
    // type 179: typedef "ibex_cheriot_pkg::cap_cor_t"
    typedef logic [1:0] \ibex_cheriot_pkg::cap_cor_t ;
    // type 180: packed struct "ibex_cheriot_pkg::perms_t"
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
    } \ibex_cheriot_pkg::perms_t ;
    // type 181: typedef "ibex_cheriot_pkg::perms_t": declared as type 180
    // type 182: packed struct "ibex_cheriot_pkg::cap_t"
    typedef struct packed {
        \ibex_cheriot_pkg::cap_cor_t cap_cor;
        logic valid;
        logic rsvd;
        \ibex_cheriot_pkg::cperms_t cperms;
        \ibex_cheriot_pkg::otype_t otype;
        \ibex_cheriot_pkg::cexp_t cexp;
        \ibex_cheriot_pkg::cbound_t top;
        \ibex_cheriot_pkg::cbound_t base;
    } \ibex_cheriot_pkg::cap_t ;
    // type 183: typedef "ibex_cheriot_pkg::cap_t": declared as type 182
    // type 184: packed array ""
    typedef logic [32:0] type_184;
    // type 185: packed struct "ibex_cheriot_pkg::decoded_cap_t"
    typedef struct packed {
        logic [32:0] top33;
        logic [31:0] base32;
        \ibex_cheriot_pkg::perms_t perms;
        \ibex_cheriot_pkg::cap_cor_t cap_cor;
        logic valid;
        logic rsvd;
        \ibex_cheriot_pkg::cperms_t cperms;
        \ibex_cheriot_pkg::otype_t otype;
        \ibex_cheriot_pkg::cexp_t cexp;
        \ibex_cheriot_pkg::cbound_t top;
        \ibex_cheriot_pkg::cbound_t base;
    } \ibex_cheriot_pkg::decoded_cap_t ;
    // type 186: typedef "ibex_cheriot_pkg::decoded_cap_t": declared as type 185
    // type 187: packed struct "ibex_cheriot_pkg::bound_req_t"
    typedef struct packed {
        logic [32:0] top33req;
        \ibex_cheriot_pkg::exp_t exp1;
        \ibex_cheriot_pkg::exp_t exp2;
        logic [5:0] explen;
        logic [5:0] expb;
        logic in_bound;
    } \ibex_cheriot_pkg::bound_req_t ;
    // type 188: typedef "ibex_cheriot_pkg::bound_req_t": declared as type 187
    // type 189: packed struct "ibex_cheriot_pkg::bound_result_t"
    typedef struct packed {
        \ibex_cheriot_pkg::decoded_cap_t cap;
        logic [31:0] maska;
        logic [31:0] rlen;
    } \ibex_cheriot_pkg::bound_result_t ;
    // type 190: typedef "ibex_cheriot_pkg::bound_result_t": declared as type 189
    // type 191: packed struct "ibex_cheriot_pkg::cap_clrperm_t"
    typedef struct packed {
        logic CTAG;
        logic SD_LM;
        logic GL_LG;
    } \ibex_cheriot_pkg::cap_clrperm_t ;
    // type 192: typedef "ibex_cheriot_pkg::cap_clrperm_t": declared as type 191
    // type 193: packed array ""
    typedef logic [9:0] type_193;
    // type 194: packed array ""
    typedef logic [34:0] type_194;
    // type 195: packed struct "ibex_cheriot_pkg::cheriot_op_t"
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
    } \ibex_cheriot_pkg::cheriot_op_t ;
    // type 196: typedef "ibex_cheriot_pkg::cheriot_op_t": declared as type 195
    // type 197: discrete enumeration "ibex_cheriot_pkg::cheriot_cap_field_e"
    typedef enum logic [2:0] {
        CFIELD_PERM = 3'h0,
        CFIELD_TYPE = 3'h1,
        CFIELD_BASE = 3'h2,
        CFIELD_LEN = 3'h3,
        CFIELD_TAG = 3'h4,
        CFIELD_ADDR = 3'h5,
        CFIELD_HIGH = 3'h6,
        CFIELD_TOP = 3'h7
    } \ibex_cheriot_pkg::cheriot_cap_field_e ;
    // type 198: typedef "ibex_cheriot_pkg::cheriot_cap_field_e": declared as type 197
    // type 199: discrete enumeration "ibex_cheriot_pkg::cheriot_adder_a_sel_e"
    typedef enum logic [2:0] {
        CHERIOT_ADDER_A_ZERO = 3'h0,
        CHERIOT_ADDER_A_IMM12 = 3'h1,
        CHERIOT_ADDER_A_IMM21 = 3'h2,
        CHERIOT_ADDER_A_IMM20 = 3'h3,
        CHERIOT_ADDER_A_RS2 = 3'h4
    } \ibex_cheriot_pkg::cheriot_adder_a_sel_e ;
    // type 200: typedef "ibex_cheriot_pkg::cheriot_adder_a_sel_e": declared as type 199
    // type 201: discrete enumeration "ibex_cheriot_pkg::cheriot_adder_b_sel_e"
    typedef enum logic [1:0] {
        CHERIOT_ADDER_B_ZERO = 2'h0,
        CHERIOT_ADDER_B_RS1 = 2'h1,
        CHERIOT_ADDER_B_PC = 2'h2
    } \ibex_cheriot_pkg::cheriot_adder_b_sel_e ;
    // type 202: typedef "ibex_cheriot_pkg::cheriot_adder_b_sel_e": declared as type 201
    // type 203: discrete enumeration "ibex_cheriot_pkg::cheriot_setaddr_sel_e"
    typedef enum logic [2:0] {
        SETADDR_NONE = 3'h0,
        SETADDR_PCC_PCNXT = 3'h1,
        SETADDR_PCC_ARITH = 3'h2,
        SETADDR_RFA_ARITH = 3'h3,
        SETADDR_SCR = 3'h4
    } \ibex_cheriot_pkg::cheriot_setaddr_sel_e ;
    // type 204: typedef "ibex_cheriot_pkg::cheriot_setaddr_sel_e": declared as type 203
    // type 205: discrete enumeration "ibex_cheriot_pkg::cheriot_setbounds_sel_e"
    typedef enum logic [2:0] {
        SETBOUNDS_NONE = 3'h0,
        SETBOUNDS_RS2 = 3'h1,
        SETBOUNDS_RNDN = 3'h2,
        SETBOUNDS_RS2_EX = 3'h3,
        SETBOUNDS_IMM = 3'h4,
        SETBOUNDS_CRRL = 3'h5,
        SETBOUNDS_CRAM = 3'h6
    } \ibex_cheriot_pkg::cheriot_setbounds_sel_e ;
    // type 206: typedef "ibex_cheriot_pkg::cheriot_setbounds_sel_e": declared as type 205
    // type 207: discrete enumeration "ibex_cheriot_pkg::cheriot_csr_op_e"
    typedef enum logic [4:0] {
        CHERIOT_CSR_NULL = 5'h00,
        CHERIOT_CSR_RW = 5'h01
    } \ibex_cheriot_pkg::cheriot_csr_op_e ;
    // type 208: typedef "ibex_cheriot_pkg::cheriot_csr_op_e": declared as type 207
    // type 209: packed array ""
    typedef \prim_ram_1p_pkg::ram_1p_cfg_req_t [1:0] type_209;
    // type 210: packed array ""
    typedef \prim_ram_1p_pkg::ram_1p_cfg_rsp_t [1:0] type_210;
    // type 211: unpacked array ""
    typedef logic [31:0] type_211 [0:9];
    // type 212: unpacked array ""
    typedef logic [21:0] type_212 [0:1];
    // type 213: unpacked array ""
    typedef logic [63:0] type_213 [0:1];
    // type 214: unpacked array ""
    typedef logic [33:0] type_214 [0:1];
    // type 215: unpacked array ""
    typedef logic [33:0] type_215 [0:3];
    // type 216: unpacked array ""
    typedef \ibex_pkg::pmp_cfg_t type_216 [0:3];
    // type 217: unpacked array ""
    typedef logic type_217 [0:2];
    // type 218: packed array ""
    typedef logic [20:0] type_218;
    // type 219: packed array ""
    typedef logic [2:0][31:0] type_219;
    // type 220: packed array ""
    typedef logic [31:1] type_220;
    // type 221: packed array ""
    typedef bit [127:0] type_221;
    // type 222: packed array ""
    typedef bit [319:0] type_222;
    // type 223: sequential enumeration "logic": predefined
    // type 224: packed array ""
    typedef logic [11:0] type_224;
    // type 225: discrete enumeration "ibex_compressed_decoder.cm_state_e"
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
    // type 226: typedef "ibex_compressed_decoder.cm_state_e": declared as type 225
    // type 227: discrete enumeration "ibex_id_stage.id_fsm_e"
    typedef enum logic {
        FIRST_CYCLE = 1'h0,
        MULTI_CYCLE = 1'h1
    } \ibex_id_stage.id_fsm_e ;
    // type 228: typedef "ibex_id_stage.id_fsm_e": declared as type 227
    // type 229: unpacked array ""
    typedef logic [31:0] type_229 [0:1];
    // type 230: packed array ""
    typedef logic [32:0] type_230;
    // type 231: unpacked array ""
    typedef logic [5:0] type_231 [0:31];
    // type 232: unpacked array ""
    typedef logic [31:0] type_232 [0:3];
    // type 233: packed array ""
    typedef logic [3:0][1:0] type_233;
    // type 234: packed array ""
    typedef logic [1:0][0:0] type_234;
    // type 235: packed array ""
    typedef logic [7:0][3:0] type_235;
    // type 236: unpacked array ""
    typedef logic [31:0] type_236 [0:31];
    // type 237: unpacked array ""
    typedef logic [31:0] type_237 [0:15];
    // type 238: unpacked array ""
    typedef logic [31:0] type_238 [0:7];
    // type 239: unpacked array ""
    typedef logic [31:0] type_239 [0:4];
    // type 240: packed array ""
    typedef logic [34:0] type_240;
    // type 241: discrete enumeration "ibex_multdiv_fast.md_fsm_e"
    typedef enum logic [2:0] {
        MD_IDLE = 3'h0,
        MD_ABS_A = 3'h1,
        MD_ABS_B = 3'h2,
        MD_COMP = 3'h3,
        MD_LAST = 3'h4,
        MD_CHANGE_SIGN = 3'h5,
        MD_FINISH = 3'h6
    } \ibex_multdiv_fast.md_fsm_e ;
    // type 242: typedef "ibex_multdiv_fast.md_fsm_e": declared as type 241
    // type 243: discrete enumeration "ibex_multdiv_fast.gen_mult_single_cycle.mult_fsm_e"
    typedef enum logic {
        MULL = 1'h0,
        MULH = 1'h1
    } \ibex_multdiv_fast.gen_mult_single_cycle.mult_fsm_e ;
    // type 244: typedef "ibex_multdiv_fast.gen_mult_single_cycle.mult_fsm_e": declared as type 243
    // type 245: packed array ""
    typedef logic [33:0] type_245;
    // type 246: packed array ""
    typedef logic [33:32] type_246;
    // type 247: discrete enumeration "ibex_multdiv_fast.gen_mult_fast.mult_fsm_e"
    typedef enum logic [1:0] {
        ALBL = 2'h0,
        ALBH = 2'h1,
        AHBL = 2'h2,
        AHBH = 2'h3
    } \ibex_multdiv_fast.gen_mult_fast.mult_fsm_e ;
    // type 248: typedef "ibex_multdiv_fast.gen_mult_fast.mult_fsm_e": declared as type 247
    // type 249: packed array ""
    typedef logic [31:8] type_249;
    // type 250: packed struct "ibex_cs_registers.status_t"
    typedef struct packed {
        logic mie;
        logic mpie;
        \ibex_pkg::priv_lvl_e mpp;
        logic mprv;
        logic tw;
    } \ibex_cs_registers.status_t ;
    // type 251: typedef "ibex_cs_registers.status_t": declared as type 250
    // type 252: packed struct "ibex_cs_registers.status_stk_t"
    typedef struct packed {
        logic mpie;
        \ibex_pkg::priv_lvl_e mpp;
    } \ibex_cs_registers.status_stk_t ;
    // type 253: typedef "ibex_cs_registers.status_stk_t": declared as type 252
    // type 254: packed struct "ibex_cs_registers.dcsr_t"
    typedef struct packed {
        \ibex_pkg::x_debug_ver_e xdebugver;
        logic [11:0] zero2;
        logic ebreakm;
        logic zero1;
        logic ebreaks;
        logic ebreaku;
        logic stepie;
        logic stopcount;
        logic stoptime;
        \ibex_pkg::dbg_cause_e cause;
        logic zero0;
        logic mprven;
        logic nmip;
        logic step;
        \ibex_pkg::priv_lvl_e prv;
    } \ibex_cs_registers.dcsr_t ;
    // type 255: typedef "ibex_cs_registers.dcsr_t": declared as type 254
    // type 256: packed struct "ibex_cs_registers.cpu_ctrl_sts_part_t"
    typedef struct packed {
        logic double_fault_seen;
        logic sync_exc_seen;
        logic [2:0] dummy_instr_mask;
        logic dummy_instr_en;
        logic data_ind_timing;
        logic icache_enable;
    } \ibex_cs_registers.cpu_ctrl_sts_part_t ;
    // type 257: typedef "ibex_cs_registers.cpu_ctrl_sts_part_t": declared as type 256
    // type 258: unpacked array ""
    typedef logic [7:0] type_258 [0:15];
    // type 259: unpacked array ""
    typedef logic [63:0] type_259 [0:31];
    // type 260: packed array ""
    typedef bit [5:0] type_260;
    // type 261: packed array ""
    typedef bit [31:0] type_261;
    // type 262: packed array ""
    typedef bit [17:0] type_262;
    // type 263: packed array ""
    typedef logic [17:0] type_263;
    // type 264: packed array ""
    typedef bit [6:0] type_264;
    // type 265: packed array ""
    typedef bit [2:0] type_265;
    // type 266: packed array ""
    typedef logic [63:64] type_266;
    // type 267: packed array ""
    typedef logic [28:0] type_267;
    // type 268: unpacked array ""
    typedef logic [31:0] type_268 [0:0];
    // type 269: packed array ""
    typedef bit [7:0] type_269;
    // type 270: unpacked array ""
    typedef logic [33:0] type_270 [0:2];
    // type 271: unpacked array ""
    typedef \ibex_pkg::pmp_req_e type_271 [0:2];
    // type 272: unpacked array ""
    typedef \ibex_pkg::priv_lvl_e type_272 [0:2];
    // type 273: unpacked array ""
    typedef logic type_273 [0:0];
    // type 274: unpacked array ""
    typedef logic [63:0] type_274 [0:0];
    // type 275: unpacked array ""
    typedef logic [1:0] type_275 [0:0];
    // type 276: unpacked array ""
    typedef logic [4:0] type_276 [0:0];
    // type 277: unpacked array ""
    typedef \ibex_cheriot_pkg::cap_t type_277 [0:0];
    // type 278: unpacked array ""
    typedef logic [3:0] type_278 [0:0];
    // type 279: unpacked array ""
    typedef \ibex_pkg::irqs_t type_279 [0:1];
    // type 280: unpacked array ""
    typedef \ibex_pkg::irqs_t type_280 [0:0];
    // type 281: unpacked array ""
    typedef logic type_281 [0:1];
    // type 282: unpacked array ""
    typedef logic [31:0] type_282 [0:0][0:9];
    // type 283: unpacked array ""
    typedef logic [15:0] type_283 [0:0];
    // type 284: unpacked array ""
    typedef logic [34:0] type_284 [0:15];
    // type 285: packed array ""
    typedef logic [715:0] type_285;
    // type 286: packed struct "ibex_top.pending_access_t"
    typedef struct packed {
        logic valid;
        logic is_read;
    } \ibex_top.pending_access_t ;
    // type 287: typedef "ibex_top.pending_access_t": declared as type 286
    // type 288: unpacked array ""
    typedef \ibex_top.pending_access_t type_288 [0:1];
    // type 289: string "string": predefined
    // type 290: unpacked struct "void": predefined
    // type 291: packed array ""
    typedef logic [13:0] type_291;
    // type 292: sequential enumeration "logic": predefined
    // type 293: sequential enumeration "bit": predefined
endpackage
