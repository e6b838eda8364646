// Types of a type file, declared in SystemVerilog (IEEE 1800-2017). A type file has no signs,
// no bounds of queues, and of a class no methods, constraints and parameters. A name that is
// taken, or missing, has the id of its type at the end.
package types;
    // type 0: sequential enumeration "logic": predefined
    // type 1: chandle "virtual interface simple_if"
    typedef chandle \virtual\x20interface\x20simple_if ;
    // type 2: sequential enumeration "bit": predefined
    // type 3: packed array "int": predefined
    // type 4: discrete enumeration "kinds_pkg::enum_int_e"
    typedef enum int {
        E_A = 32'h00000000,
        E_B = 32'h00000001,
        E_C = 32'h00000002
    } \kinds_pkg::enum_int_e ;
    // type 5: packed array ""
    typedef logic [1:0] type_5;
    // type 6: discrete enumeration "kinds_pkg::enum_logic_e"
    typedef enum logic [1:0] {
        L_0 = 2'h0,
        L_1 = 2'h1,
        L_X = 2'b1x,
        L_Z = 2'bzz
    } \kinds_pkg::enum_logic_e ;
    // type 7: packed array ""
    typedef bit [7:0] type_7;
    // type 8: discrete enumeration "kinds_pkg::enum_bit_e"
    typedef enum bit [7:0] {
        B_10 = 8'h0a,
        B_255 = 8'hff
    } \kinds_pkg::enum_bit_e ;
    // type 9: packed array "byte": predefined
    // type 10: discrete enumeration "kinds_pkg::enum_byte_e"
    typedef enum byte {
        Y_M = 8'hff,
        Y_P = 8'h01
    } \kinds_pkg::enum_byte_e ;
    // type 11: discrete enumeration "top.__typeimpenum9"
    typedef enum int {
        ANON_0 = 32'h00000000,
        ANON_1 = 32'h00000001
    } \top.__typeimpenum9 ;
    // type 12: typedef "top::__typeimpenum9"
    typedef \top.__typeimpenum9 \top::__typeimpenum9 ;
    // type 13: packed array ""
    typedef logic [7:0] type_13;
    // type 14: packed array ""
    typedef logic [0:7] type_14;
    // type 15: packed array ""
    typedef logic [11:4] type_15;
    // type 16: packed array ""
    typedef logic [3:0][7:0] type_16;
    // type 17: packed array ""
    typedef logic [0:3][7:0] type_17;
    // type 18: packed array ""
    typedef logic [15:0] type_18;
    // type 19: packed array ""
    typedef logic [3:0] type_19;
    // type 20: packed array ""
    typedef bit [2:1] type_20;
    // type 21: packed struct "kinds_pkg::ps_t"
    typedef struct packed {
        logic [3:0] hi;
        bit [2:1] lo;
        \kinds_pkg::enum_logic_e e;
    } \kinds_pkg::ps_t ;
    // type 22: packed array ""
    typedef bit [6:0] type_22;
    // type 23: packed struct "kinds_pkg::pss_t"
    typedef struct packed {
        bit a;
        bit [6:0] b;
    } \kinds_pkg::pss_t ;
    // type 24: string "string": predefined
    // type 25: real "real": predefined
    // type 26: unpacked array ""
    typedef logic [7:0] type_26 [0:3];
    // type 27: unpacked struct "kinds_pkg::us_t"
    typedef struct {
        int i;
        string s;
        real r;
        logic [7:0] arr [0:3];
        \kinds_pkg::ps_t p;
    } \kinds_pkg::us_t ;
    // type 28: packed union "kinds_pkg::pu_t"
    typedef union packed {
        logic [7:0] w;
        \kinds_pkg::ps_t p;
    } \kinds_pkg::pu_t ;
    // type 29: packed array "shortint": predefined
    // type 30: unpacked union "kinds_pkg::uu_t"
    typedef union {
        int i;
        shortint h;
    } \kinds_pkg::uu_t ;
    // type 31: dynamic array ""
    typedef int type_31 [];
    // type 32: queue ""
    typedef logic [7:0] type_32 [$];
    // type 33: queue ""
    typedef int type_33 [$];
    // type 34: associative array ""
    typedef string type_34 [string];
    // type 35: associative array ""
    typedef int type_35 [int];
    // type 36: wildcard "*"
    // any index of an associative array: [*]
    // type 37: associative array ""
    typedef int type_37 [*];
    // type 38: queue ""
    typedef int type_38 [$][];
    // type 39: unpacked array ""
    typedef logic [7:0] type_39 [0:3][2:0];
    // type 40: unpacked array ""
    typedef logic [3:0][7:0] type_40 [1:2][0:4];
    // type 41: packed struct "top.__typeimpsu10"
    typedef struct packed {
        logic a;
    } \top.__typeimpsu10 ;
    // type 42: typedef "top::__typeimpsu10"
    typedef \top.__typeimpsu10 \top::__typeimpsu10 ;
    // type 43: unpacked struct "top.__typeimpsu11"
    typedef struct {
        logic a;
    } \top.__typeimpsu11 ;
    // type 44: typedef "top::__typeimpsu11"
    typedef \top.__typeimpsu11 \top::__typeimpsu11 ;
    // type 45: packed array "longint": predefined
    // type 46: packed array "integer": predefined
    // type 47: packed array "time": predefined
    // type 48: event "event": predefined
    // type 49: chandle "chandle": predefined
    typedef class \cls_pkg::fwd_c ;
    // type 50: class "cls_pkg::base_c"
    class \cls_pkg::base_c ;
        int id;
        bit [7:0] r;
        int count; // flagged
        string nm;
        int k;
        \cls_pkg::fwd_c peer;
        \cls_pkg::base_c parent;
    endclass
    // type 52: queue ""
    typedef \cls_pkg::base_c type_52 [$];
    // type 53: associative array ""
    typedef \cls_pkg::base_c type_53 [string];
    // type 54: packed array ""
    typedef bit [3:0] type_54;
    typedef class \std::mailbox__Tz2 ;
    typedef class \std::semaphore ;
    // type 51: class "cls_pkg::fwd_c"
    class \cls_pkg::fwd_c extends \cls_pkg::base_c ;
        \kinds_pkg::us_t u;
        logic [7:0] q [$];
        string aa [string];
        int d [];
        event ev;
        chandle ch;
        \cls_pkg::base_c kids [$];
        \cls_pkg::base_c by_name [string];
        \virtual\x20interface\x20simple_if vif;
        bit [3:0] rc;
        \std::mailbox__Tz2 mb;
        \std::semaphore sem;
    endclass
    // type 55: class "std::mailbox__Tz2"
    class \std::mailbox__Tz2 ;
        int m_bound;
        int m_queue [$];
    endclass
    // type 56: class "std::semaphore"
    class \std::semaphore ;
        int m_keyCount;
    endclass
    // type 58: unpacked array ""
    typedef logic [7:0] type_58 [0:2];
    // type 57: class "cls_pkg::par_c__Tz3_N3"
    class \cls_pkg::par_c__Tz3_N3 extends \cls_pkg::fwd_c ;
        logic [7:0] items [0:2];
        logic [7:0] q [$];
    endclass
    // type 60: unpacked array ""
    typedef real type_60 [0:3];
    // type 61: queue ""
    typedef real type_61 [$];
    // type 59: class "cls_pkg::par_c__Tz1"
    class \cls_pkg::par_c__Tz1 extends \cls_pkg::fwd_c ;
        real items [0:3];
        real q [$];
    endclass
    // type 63: unpacked array ""
    typedef int type_63 [0:3];
    // type 62: class "cls_pkg::par_c"
    class \cls_pkg::par_c extends \cls_pkg::fwd_c ;
        int items [0:3];
        int q [$];
    endclass
    // type 64: typedef "cls_pkg::par_b_t"
    typedef \cls_pkg::par_c__Tz3_N3 \cls_pkg::par_b_t ;
    // type 65: typedef "kinds_pkg::enum_int_e": declared as type 4
    // type 66: typedef "kinds_pkg::enum_logic_e": declared as type 6
    // type 67: typedef "kinds_pkg::enum_bit_e": declared as type 8
    // type 68: typedef "kinds_pkg::enum_byte_e": declared as type 10
    // type 69: typedef "kinds_pkg::byte_t"
    typedef logic [7:0] \kinds_pkg::byte_t ;
    // type 70: typedef "kinds_pkg::byte2_t"
    typedef logic [7:0] \kinds_pkg::byte2_t ;
    // type 71: typedef "kinds_pkg::asc_t"
    typedef logic [0:7] \kinds_pkg::asc_t ;
    // type 72: typedef "kinds_pkg::off_t"
    typedef logic [11:4] \kinds_pkg::off_t ;
    // type 73: typedef "kinds_pkg::pk2_t"
    typedef logic [3:0][7:0] \kinds_pkg::pk2_t ;
    // type 74: typedef "kinds_pkg::pk_of_td_t"
    typedef logic [0:3][7:0] \kinds_pkg::pk_of_td_t ;
    // type 75: typedef "kinds_pkg::s16_t"
    typedef logic [15:0] \kinds_pkg::s16_t ;
    // type 76: typedef "kinds_pkg::ps_t": declared as type 21
    // type 77: typedef "kinds_pkg::pss_t": declared as type 23
    // type 78: typedef "kinds_pkg::us_t": declared as type 27
    // type 79: typedef "kinds_pkg::pu_t": declared as type 28
    // type 80: typedef "kinds_pkg::uu_t": declared as type 30
    // type 81: typedef "kinds_pkg::dyn_t"
    typedef int \kinds_pkg::dyn_t [];
    // type 82: typedef "kinds_pkg::q_t"
    typedef logic [7:0] \kinds_pkg::q_t [$];
    // type 83: typedef "kinds_pkg::qb_t"
    typedef int \kinds_pkg::qb_t [$];
    // type 84: typedef "kinds_pkg::aa_s_t"
    typedef string \kinds_pkg::aa_s_t [string];
    // type 85: typedef "kinds_pkg::aa_i_t"
    typedef int \kinds_pkg::aa_i_t [int];
    // type 86: typedef "kinds_pkg::aa_w_t"
    typedef int \kinds_pkg::aa_w_t [*];
    // type 87: typedef "kinds_pkg::q_of_dyn_t"
    typedef int \kinds_pkg::q_of_dyn_t [$][];
    // type 88: typedef "kinds_pkg::mem_t"
    typedef logic [7:0] \kinds_pkg::mem_t [0:3][2:0];
    // type 89: typedef "kinds_pkg::mixed_t"
    typedef logic [3:0][7:0] \kinds_pkg::mixed_t [1:2][0:4];
endpackage
