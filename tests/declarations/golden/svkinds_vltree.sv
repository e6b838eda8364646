// Types of a type file, declared in SystemVerilog (IEEE 1800-2017). A type file has no signs,
// no bounds of queues, and of a class no methods, constraints and parameters. A name that is
// taken, or missing, has the id of its type at the end.

package kinds_pkg;
    typedef enum int {
        E_A = 32'h00000000,
        E_B = 32'h00000001,
        E_C = 32'h00000002
    } enum_int_e;
    typedef enum logic [1:0] {
        L_0 = 2'h0,
        L_1 = 2'h1,
        L_X = 2'b1x,
        L_Z = 2'bzz
    } enum_logic_e;
    typedef enum bit [7:0] {
        B_10 = 8'h0a,
        B_255 = 8'hff
    } enum_bit_e;
    typedef enum byte {
        Y_M = 8'hff,
        Y_P = 8'h01
    } enum_byte_e;
    typedef struct packed {
        logic [3:0] hi;
        bit [2:1] lo;
        enum_logic_e e;
    } ps_t;
    typedef struct packed {
        bit a;
        bit [6:0] b;
    } pss_t;
    typedef struct {
        int i;
        string s;
        real r;
        logic [7:0] arr [0:3];
        ps_t p;
    } us_t;
    typedef union packed {
        logic [7:0] w;
        ps_t p;
    } pu_t;
    typedef union {
        int i;
        shortint h;
    } uu_t;
    typedef logic [7:0] byte_t;
    typedef logic [7:0] byte2_t;
    typedef logic [0:7] asc_t;
    typedef logic [11:4] off_t;
    typedef logic [3:0][7:0] pk2_t;
    typedef logic [0:3][7:0] pk_of_td_t;
    typedef logic [15:0] s16_t;
    typedef int dyn_t [];
    typedef logic [7:0] q_t [$];
    typedef int qb_t [$];
    typedef string aa_s_t [string];
    typedef int aa_i_t [int];
    typedef int aa_w_t [*];
    typedef int q_of_dyn_t [$][];
    typedef logic [7:0] mem_t [0:3][2:0];
    typedef logic [3:0][7:0] mixed_t [1:2][0:4];
endpackage

package top;
    typedef enum int {
        ANON_0 = 32'h00000000,
        ANON_1 = 32'h00000001
    } \top.__typeimpenum9 ;
    typedef \top.__typeimpenum9 __typeimpenum9;
    typedef struct packed {
        logic a;
    } \top.__typeimpsu10 ;
    typedef \top.__typeimpsu10 __typeimpsu10;
    typedef struct {
        logic a;
    } \top.__typeimpsu11 ;
    typedef \top.__typeimpsu11 __typeimpsu11;
endpackage

package cls_pkg;
    typedef chandle \virtual\x20interface\x20simple_if ;
    typedef class fwd_c;
    class base_c;
        int id;
        bit [7:0] r;
        static int count;
        string nm;
        int k;
        fwd_c peer;
        base_c parent;
    endclass
    typedef class \std::mailbox__Tz2 ;
    typedef class \std::semaphore ;
    class fwd_c extends base_c;
        kinds_pkg::us_t u;
        logic [7:0] q [$];
        string aa [string];
        int d [];
        event ev;
        chandle ch;
        base_c kids [$];
        base_c by_name [string];
        \virtual\x20interface\x20simple_if vif;
        bit [3:0] rc;
        \std::mailbox__Tz2 mb;
        \std::semaphore sem;
    endclass
    class \std::mailbox__Tz2 ;
        int m_bound;
        int m_queue [$];
    endclass
    class \std::semaphore ;
        int m_keyCount;
    endclass
    class par_c__Tz3_N3 extends fwd_c;
        logic [7:0] items [0:2];
        logic [7:0] q [$];
    endclass
    class par_c__Tz1 extends fwd_c;
        real items [0:3];
        real q [$];
    endclass
    class par_c extends fwd_c;
        int items [0:3];
        int q [$];
    endclass
    typedef par_c__Tz3_N3 par_b_t;
endpackage
