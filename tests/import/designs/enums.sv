// Enumerations: all base types, x and z, ranges of literals, and scopes.
package e;
    typedef enum logic [3:0] {A='x, B=4'bz01x, C=4'b0000, D=4'hf, E=4'b1zzz} xz_t;
    typedef enum bit signed [7:0] {NEG=-128, MINUS=-1, Z0=0, P=127} s8_t;
    typedef enum logic [64:0] {W0=65'h1_0000_0000_0000_0001, W1=65'h0, W2={65{1'bx}}} w65_t;
    typedef enum logic [127:0] {H0=128'hdeadbeef_00112233_44556677_8899aabb} w128_t;
    typedef enum byte {BA, BB=5, BC} byte_t;
    typedef enum shortint {SA=-5, SB} short_t;
    typedef enum longint unsigned {LA=64'hffff_ffff_ffff_ffff} lu_t;
    typedef enum integer {IA=32'bx, IB=1} integer_t;
    typedef enum {R[4], S[5:3]=10, T=100} range_t;
    typedef logic [2:0] base_t;
    typedef enum base_t {TB0, TB1=7} tb_t;
    typedef base_t base2_t;
    typedef enum base2_t {TC0=3'bxxx, TC1=3} tb2_t;
    typedef enum logic {F=1'b0, Tr=1'b1} onebit_t;
    typedef enum logic [0:0] {F1, T1} onebit2_t;
    typedef enum bit [0:6] {AS0, AS1=64} asc_t;
    typedef enum time {TT0=0} time_t;
    class c;
        struct { enum {IN1, IN2} e; enum logic [1:0] {IN3=2'b1z} f; } s;
        typedef enum {CE0, CE1} ce_t;
        ce_t ce;
        static ce_t sce;
    endclass
endpackage
module top;
    e::xz_t a;
    e::s8_t b;
    e::w65_t c;
    e::w128_t d;
    e::byte_t f;
    e::short_t g;
    e::lu_t h;
    e::integer_t i;
    e::range_t j;
    e::tb_t k;
    e::tb2_t l;
    e::onebit_t m;
    e::onebit2_t n;
    e::asc_t o;
    e::c p;
    e::time_t tt;
    enum {LOC0, LOC1} q;
    enum logic [1:0] {LX=2'bxx} r[3];
    typedef enum {MA, MB} mod_t;
    mod_t s;
    struct packed { enum bit [1:0] {Q1, Q2} q; } t;
    if (1) begin : gen
        typedef enum {GA,GB} gen_t;
        gen_t g1;
        if (1) begin : deep
            typedef struct packed {gen_t x;} d_t;
            d_t dd;
        end
    end
    for (genvar gi=0; gi<2; gi++) begin : lp
        typedef logic [gi+1:0] v_t;
        typedef struct packed { v_t a; } s_t;
        s_t v;
    end
endmodule
