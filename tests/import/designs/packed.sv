// Packed types: signs, ranges of all directions, and typedefs across packages.
package pa;
    typedef logic [3:0] nib_t;
    typedef nib_t [1:0] byte_t;
    typedef byte_t [0:3] word_t;
    typedef union packed {
        word_t w;
        struct packed {
            byte_t [1:0] hi;
            union packed { logic [15:0] x; nib_t [3:0] y; } lo;
        } s;
    } pu_t;
    typedef bit signed [-3:4] neg_t;
    typedef reg [0:0] one_t;
    typedef logic signed [7:0] s8_t;
    typedef int unsigned ui_t;
    typedef byte unsigned ub_t;
    typedef integer unsigned uint4_t;
    typedef struct packed signed { bit [3:0] a; s8_t b; } ss_t;
    typedef time tm_t;
    typedef realtime rtm_t;
    typedef shortreal sr_t;
    typedef real r_t;
    typedef shortint unsigned usi_t;
    typedef longint unsigned uli_t;
endpackage
package pb;
    typedef pa::word_t alias1_t;
    typedef alias1_t alias2_t;
    typedef alias2_t arr_t [2][3:1];
    typedef arr_t chain_t [];
    typedef chain_t qq_t [$];
    typedef pa::pu_t pu_alias_t;
endpackage
package pc;
    typedef pb::qq_t last_t;
    typedef last_t last2_t;
endpackage
module top;
    pa::pu_t a;
    pa::neg_t b;
    pa::one_t c;
    pa::ss_t d;
    pc::last2_t e;
    pb::pu_alias_t f;
    pa::ui_t g;
    pa::ub_t h;
    pa::uint4_t i;
    pa::tm_t j;
    pa::rtm_t k;
    pa::sr_t l;
    pa::usi_t m;
    pa::uli_t n;
    pa::r_t o;
    logic [7:0][3:0] p [4][2];
    bit [0:31] q;
    logic [pa::nib_t'(3):0] r;
endmodule
