// Classes with parameters, x and z in enumerations, keys of all kinds, interfaces, types in
// generate blocks and in processes.
package base_p;
  typedef enum logic [2:0] {R0 = 3'b00x, R1 = 3'bz10, R2 = 3'b111} xz_e;
  typedef enum bit signed [7:0] {NEG = -8'sd5, ZERO = 0, POS = 100} signed_e;
  typedef enum {A[3], B[2:4] = 10, C} ranged_e;
  typedef xz_e alias1; typedef alias1 alias2; typedef alias2 alias3[2:0];
  typedef class fwd_c;
  typedef struct packed {logic [3:0] hi; union packed {logic [7:0] whole;
      struct packed {bit [3:0] a, b;} parts;} u; alias1 e;} deep_t;
  typedef deep_t [1:0][3:0] deep_arr_t;
  typedef logic [1:0][7:0] mixed_t [2][0:3][4:1];
  typedef int assoc_by_enum [xz_e]; typedef string assoc_by_str [string];
      typedef bit assoc_star [*]; typedef byte assoc_by_cls [fwd_c]; typedef int assoc_int[int];
      typedef real assoc_packed[logic [15:0]];
  typedef int bq [$:7]; typedef bq qq [$]; typedef assoc_by_enum dyn_assoc []; 
  typedef struct {chandle h; event ev; string s; fwd_c c; mixed_t m; bq q; time t;
      realtime rt; deep_arr_t d[];} bag_t;
  class fwd_c; fwd_c next; static int count; protected bag_t bag; local rand bit [5:0] r;
      assoc_by_cls ac; xz_e e; endclass
  class par_c #(type T = int, int W = 8, string N = "x") extends fwd_c; T val; bit [W-1:0] w;
      T q[$]; static T reg_[string]; typedef T my_t; typedef enum {I, J} st_e; st_e st;
      typedef struct {T x; st_e y;} pair_t; pair_t p; endclass
  class leaf_c extends par_c #(logic [9:0], 3); par_c #(string, 16, "y") other; endclass
  class list_c #(type T = int);  T data; endclass
  class impl extends leaf_c; list_c #(byte) ll; endclass
endpackage
package top_p; import base_p::*; export base_p::*; typedef alias3 re_exported; typedef logic re_t;
    typedef struct packed {re_t x;} useless_t; endpackage
interface bus_if #(parameter W = 4) (input logic clk); typedef logic [W-1:0] data_t; data_t d;
    logic v; modport m(output d, v); modport s(input d, v); endinterface
module sub import base_p::*; (input struct packed {logic a; logic [1:0] b;} anon, input deep_t d);
    typedef enum {L0, L1} local_e; local_e le; typedef struct {local_e a; xz_e b;} loc_t; loc_t lt;
    endmodule
module top; import base_p::*;
  logic clk; bus_if #(8) b8(clk); bus_if b4(clk);
  virtual bus_if vif;
  impl im; par_c #(real) pr; list_c #(int) li; assoc_by_str abs_; assoc_star ast; assoc_packed ap;
      assoc_int ai; dyn_assoc da; qq q; bag_t bag; signed_e se; ranged_e re; alias3 a3; 
  struct packed {logic a; logic [1:0] b;} an; deep_t d; mixed_t mm; sub s1(.anon(an), .d(d));
  int queue_of_dyn [][$]; logic [3:0] neg [-2:1]; bit [-1:-4] negp; logic signed [7:0] sl;
      bit [0:0] one; integer signed ii; int unsigned ui; 
  struct {int a; struct {int b; union packed {int x; int unsigned y;} u;} in[2];} anon_nested;
  genvar g; generate for (g = 0; g < 2; g++) begin : gen typedef logic [g+2:0] gt; gt x;
      end endgenerate
  initial begin automatic list_c #(fwd_c) lf; typedef struct {byte z;} inproc_t; inproc_t ip; end
endmodule
