// One name in many scopes, and parameters of modules.
package p1;
    typedef enum logic [1:0] {S0, S1} st_t;
    typedef struct packed { st_t s; } same_t;
endpackage
package p2;
    import p1::*;
    export p1::*;
    typedef struct packed { p1::same_t x; logic y; } same_t;
    typedef st_t [3:0] est_t;
    typedef st_t ust_t [2];
endpackage
interface ifc;
    typedef struct packed { p2::same_t a; } same_t;
    same_t v;
    function automatic int f(input same_t q);
        return 0;
    endfunction
endinterface
module leaf #(int N=1)(ifc i);
    typedef struct packed { logic [N:0] x; } same_t;
    same_t z;
    same_t arr [N+1];
    if (N==1) begin : g1
        typedef enum {GE0} same_t;
        same_t w;
    end
    else begin : g2
        typedef enum {GE1=5} same_t;
        same_t w;
    end
endmodule
module top;
    ifc a();
    ifc b[2]();
    leaf l1(a);
    leaf #(2) l2(b[0]);
    p2::est_t e;
    p2::ust_t u;
    p2::same_t s;
    typedef logic [7:0] same_t;
    same_t t;
    typedef struct { same_t a[2]; p1::st_t b; } big_t;
    big_t bb [4];
    typedef bit [31:0] w_t;
    typedef w_t [1:0] w2_t;
    w2_t [3:0] w8;
    typedef string sarr_t [p1::st_t];
    sarr_t sa;
    typedef int iarr_t [w_t];
    iarr_t ia;
    typedef union packed { w_t w; logic [3:0][7:0] b; same_t [3:0] c; } un_t;
    un_t un;
    task automatic tk(input big_t x, output same_t y);
        typedef enum {TK} te_t;
        te_t e;
        y = x.a[0];
    endtask
    class loc;
        typedef enum {LC} le_t;
        le_t l;
        w_t q [$];
    endclass
    loc ll;
endmodule
