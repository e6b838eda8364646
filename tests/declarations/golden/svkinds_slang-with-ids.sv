// Types of a type file, declared in SystemVerilog (IEEE 1800-2017). A type file has no signs,
// no bounds of queues, and of a class no methods, constraints and parameters. A name that is
// taken, or missing, has the id of its type at the end.

package kinds_pkg;
    // type 5: discrete enumeration "kinds_pkg::enum_logic_e"
    typedef enum logic [1:0] {
        L_0 = 2'h0,
        L_1 = 2'h1,
        L_X = 2'b1x,
        L_Z = 2'bzz
    } enum_logic_e;
    // type 6: typedef "kinds_pkg::enum_logic_e": declared as type 5
    // type 30: packed struct "kinds_pkg::ps_t"
    typedef struct packed {
        logic [3:0] hi;
        bit [2:1] lo;
        enum_logic_e e;
    } ps_t;
    // type 33: packed struct "kinds_pkg::pss_t"
    typedef struct packed {
        bit a;
        bit [6:0] b;
    } pss_t;
    // type 15: typedef "kinds_pkg::byte_t"
    typedef logic [7:0] byte_t;
    // type 31: typedef "kinds_pkg::ps_t": declared as type 30
    // type 38: unpacked struct "kinds_pkg::us_t"
    typedef struct {
        int i;
        string s;
        real r;
        byte_t arr [0:3];
        ps_t p;
    } us_t;
endpackage

package types;
    // type 3: sequential enumeration "logic": predefined
    // type 7: sequential enumeration "bit": predefined
    // type 0: packed array "int": predefined
    // type 35: string "string": predefined
    // type 36: real "real": predefined
    // type 47: unpacked struct "void": predefined
    // type 91: packed struct ""
    typedef struct packed {
        logic a;
    } type_91;
    // type 92: unpacked struct ""
    typedef struct {
        logic a;
    } type_92;
endpackage
