// Types of a type file, declared in SystemVerilog (IEEE 1800-2017). A type file has no signs,
// no bounds of queues, and of a class no methods, constraints and parameters. A name that is
// taken, or missing, has the id of its type at the end.
package types;
    // type 0: packed array "int": predefined
    // type 1: discrete enumeration "kinds_pkg::enum_int_e"
    typedef enum int {
        E_A = 32'h00000000,
        E_B = 32'h00000001,
        E_C = 32'h00000002
    } \kinds_pkg::enum_int_e ;
    // type 2: typedef "kinds_pkg::enum_int_e": declared as type 1
    // type 3: sequential enumeration "logic": predefined
    // type 4: packed array ""
    typedef logic [1:0] type_4;
    // type 5: discrete enumeration "kinds_pkg::enum_logic_e"
    typedef enum logic [1:0] {
        L_0 = 2'h0,
        L_1 = 2'h1,
        L_X = 2'b1x,
        L_Z = 2'bzz
    } \kinds_pkg::enum_logic_e ;
    // type 6: typedef "kinds_pkg::enum_logic_e": declared as type 5
    // type 7: sequential enumeration "bit": predefined
    // type 8: packed array ""
    typedef bit [7:0] type_8;
    // type 9: discrete enumeration "kinds_pkg::enum_bit_e"
    typedef enum bit [7:0] {
        B_10 = 8'h0a,
        B_255 = 8'hff
    } \kinds_pkg::enum_bit_e ;
    // type 10: typedef "kinds_pkg::enum_bit_e": declared as type 9
    // type 11: packed array "byte": predefined
    // type 12: discrete enumeration "kinds_pkg::enum_byte_e"
    typedef enum byte {
        Y_M = 8'hff,
        Y_P = 8'h01
    } \kinds_pkg::enum_byte_e ;
    // type 13: typedef "kinds_pkg::enum_byte_e": declared as type 12
    // type 14: packed array ""
    typedef logic [7:0] type_14;
    // type 15: typedef "kinds_pkg::byte_t"
    typedef logic [7:0] \kinds_pkg::byte_t ;
    // type 16: typedef "kinds_pkg::byte2_t"
    typedef \kinds_pkg::byte_t \kinds_pkg::byte2_t ;
    // type 17: packed array ""
    typedef logic [0:7] type_17;
    // type 18: typedef "kinds_pkg::asc_t"
    typedef logic [0:7] \kinds_pkg::asc_t ;
    // type 19: packed array ""
    typedef logic [11:4] type_19;
    // type 20: typedef "kinds_pkg::off_t"
    typedef logic [11:4] \kinds_pkg::off_t ;
    // type 21: packed array ""
    typedef logic [3:0][7:0] type_21;
    // type 22: typedef "kinds_pkg::pk2_t"
    typedef logic [3:0][7:0] \kinds_pkg::pk2_t ;
    // type 23: packed array ""
    typedef \kinds_pkg::byte_t [0:3] type_23;
    // type 24: typedef "kinds_pkg::pk_of_td_t"
    typedef \kinds_pkg::byte_t [0:3] \kinds_pkg::pk_of_td_t ;
    // type 25: sequential enumeration "logic": predefined
    // type 26: packed array ""
    typedef logic [15:0] type_26;
    // type 27: typedef "kinds_pkg::s16_t"
    typedef logic [15:0] \kinds_pkg::s16_t ;
    // type 28: packed array ""
    typedef logic [3:0] type_28;
    // type 29: packed array ""
    typedef bit [2:1] type_29;
    // type 30: packed struct "kinds_pkg::ps_t"
    typedef struct packed {
        logic [3:0] hi;
        bit [2:1] lo;
        \kinds_pkg::enum_logic_e e;
    } \kinds_pkg::ps_t ;
    // type 31: typedef "kinds_pkg::ps_t": declared as type 30
    // type 32: packed array ""
    typedef bit [6:0] type_32;
    // type 33: packed struct "kinds_pkg::pss_t"
    typedef struct packed {
        bit a;
        bit [6:0] b;
    } \kinds_pkg::pss_t ;
    // type 34: typedef "kinds_pkg::pss_t": declared as type 33
    // type 35: string "string": predefined
    // type 36: real "real": predefined
    // type 37: unpacked array ""
    typedef \kinds_pkg::byte_t type_37 [0:3];
    // type 38: unpacked struct "kinds_pkg::us_t"
    typedef struct {
        int i;
        string s;
        real r;
        \kinds_pkg::byte_t arr [0:3];
        \kinds_pkg::ps_t p;
    } \kinds_pkg::us_t ;
    // type 39: typedef "kinds_pkg::us_t": declared as type 38
    // type 40: packed union "kinds_pkg::pu_t"
    typedef union packed {
        logic [7:0] w;
        \kinds_pkg::ps_t p;
    } \kinds_pkg::pu_t ;
    // type 41: typedef "kinds_pkg::pu_t": declared as type 40
    // type 42: packed array "shortint": predefined
    // type 43: unpacked union "kinds_pkg::uu_t"
    typedef union {
        int i;
        shortint h;
    } \kinds_pkg::uu_t ;
    // type 44: typedef "kinds_pkg::uu_t": declared as type 43
    // type 45: packed tagged union "kinds_pkg::tpu_t"
    typedef union tagged packed {
        logic [7:0] a;
        logic [7:0] b;
    } \kinds_pkg::tpu_t ;
    // type 46: typedef "kinds_pkg::tpu_t": declared as type 45
    // type 47: unpacked struct "void": predefined
    // type 48: unpacked tagged union "kinds_pkg::tuu_t"
    typedef union tagged {
        int a;
        void b;
    } \kinds_pkg::tuu_t ;
    // type 49: typedef "kinds_pkg::tuu_t": declared as type 48
    // type 50: dynamic array ""
    typedef int type_50 [];
    // type 51: typedef "kinds_pkg::dyn_t"
    typedef int \kinds_pkg::dyn_t [];
    // type 52: queue ""
    typedef \kinds_pkg::byte_t type_52 [$];
    // type 53: typedef "kinds_pkg::q_t"
    typedef \kinds_pkg::byte_t \kinds_pkg::q_t [$];
    // type 54: queue ""
    typedef int type_54 [$];
    // type 55: typedef "kinds_pkg::qb_t"
    typedef int \kinds_pkg::qb_t [$];
    // type 56: associative array ""
    typedef string type_56 [string];
    // type 57: typedef "kinds_pkg::aa_s_t"
    typedef string \kinds_pkg::aa_s_t [string];
    // type 58: associative array ""
    typedef int type_58 [int];
    // type 59: typedef "kinds_pkg::aa_i_t"
    typedef int \kinds_pkg::aa_i_t [int];
    // type 102: wildcard "*"
    // any index of an associative array: [*]
    // type 60: associative array ""
    typedef int type_60 [*];
    // type 61: typedef "kinds_pkg::aa_w_t"
    typedef int \kinds_pkg::aa_w_t [*];
    // type 62: queue ""
    typedef \kinds_pkg::dyn_t type_62 [$];
    // type 63: typedef "kinds_pkg::q_of_dyn_t"
    typedef \kinds_pkg::dyn_t \kinds_pkg::q_of_dyn_t [$];
    // type 64: unpacked array ""
    typedef logic [7:0] type_64 [2:0];
    // type 65: unpacked array ""
    typedef logic [7:0] type_65 [0:3][2:0];
    // type 66: typedef "kinds_pkg::mem_t"
    typedef logic [7:0] \kinds_pkg::mem_t [0:3][2:0];
    // type 67: unpacked array ""
    typedef logic [3:0][7:0] type_67 [0:4];
    // type 68: unpacked array ""
    typedef logic [3:0][7:0] type_68 [1:2][0:4];
    // type 69: typedef "kinds_pkg::mixed_t"
    typedef logic [3:0][7:0] \kinds_pkg::mixed_t [1:2][0:4];
    typedef class \cls_pkg::fwd_c ;
    // type 70: class "cls_pkg::base_c"
    class \cls_pkg::base_c ;
        int id;
        bit [7:0] r;
        int count; // flagged
        string nm;
        int k;
        \cls_pkg::fwd_c peer;
        \cls_pkg::base_c parent;
    endclass
    // type 72: event "event": predefined
    // type 73: chandle "chandle": predefined
    // type 74: queue ""
    typedef \cls_pkg::base_c type_74 [$];
    // type 75: associative array ""
    typedef \cls_pkg::base_c type_75 [string];
    // type 76: chandle "virtualInterface simple_if"
    typedef chandle \virtualInterface\x20simple_if ;
    // type 78: packed array ""
    typedef bit [3:0] type_78;
    typedef class \std::process ;
    typedef class \std::mailbox#(T=int) ;
    typedef class \std::semaphore ;
    // type 71: class "cls_pkg::fwd_c"
    class \cls_pkg::fwd_c extends \cls_pkg::base_c ;
        \kinds_pkg::us_t u;
        \kinds_pkg::q_t q;
        \kinds_pkg::aa_s_t aa;
        \kinds_pkg::dyn_t d;
        event ev;
        chandle ch;
        \cls_pkg::base_c kids [$];
        \cls_pkg::base_c by_name [string];
        \virtualInterface\x20simple_if vif;
        \std::process pr;
        bit [3:0] rc;
        \std::mailbox#(T=int) mb;
        \std::semaphore sem;
    endclass
    // type 77: class "std::process"
    class \std::process ;
    endclass
    // type 79: class "std::mailbox#(T=int)"
    class \std::mailbox#(T=int) ;
    endclass
    // type 80: class "std::semaphore"
    class \std::semaphore ;
    endclass
    // type 82: typedef "cls_pkg::par_c::T"
    typedef \kinds_pkg::byte_t \cls_pkg::par_c::T ;
    // type 83: unpacked array ""
    typedef \cls_pkg::par_c::T type_83 [0:2];
    // type 84: queue ""
    typedef \cls_pkg::par_c::T type_84 [$];
    // type 81: class "cls_pkg::par_c#(T=logic[7:0],N=3)"
    class \cls_pkg::par_c#(T=logic[7:0],N=3) extends \cls_pkg::fwd_c ;
        \cls_pkg::par_c::T items [0:2];
        \cls_pkg::par_c::T q [$];
    endclass
    // type 86: typedef "cls_pkg::par_c::T"
    typedef real \cls_pkg::par_c::T_86 ;
    // type 87: unpacked array ""
    typedef \cls_pkg::par_c::T_86 type_87 [0:3];
    // type 88: queue ""
    typedef \cls_pkg::par_c::T_86 type_88 [$];
    // type 85: class "cls_pkg::par_c#(T=real,N=4)"
    class \cls_pkg::par_c#(T=real,N=4) extends \cls_pkg::fwd_c ;
        \cls_pkg::par_c::T_86 items [0:3];
        \cls_pkg::par_c::T_86 q [$];
    endclass
    // type 89: typedef "cls_pkg::par_b_t"
    typedef \cls_pkg::par_c#(T=logic[7:0],N=3) \cls_pkg::par_b_t ;
    // type 90: discrete enumeration ""
    typedef enum int {
        ANON_0 = 32'h00000000,
        ANON_1 = 32'h00000001
    } type_90;
    // type 91: packed struct ""
    typedef struct packed {
        logic a;
    } type_91;
    // type 92: unpacked struct ""
    typedef struct {
        logic a;
    } type_92;
    // type 93: sequential enumeration "reg": predefined
    // type 94: packed array "longint": predefined
    // type 95: packed array "integer": predefined
    // type 96: packed array "time": predefined
    // type 97: packed array "int": predefined
    // type 98: packed array "byte": predefined
    // type 99: real "shortreal": predefined
    // type 100: real "realtime": predefined
    // type 101: sequential enumeration "bit": predefined
    // type 103: sequential enumeration "logic": predefined
endpackage
