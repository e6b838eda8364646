-- VHDL types: nested arrays and records, partial constraints, null and descending ranges, instances.
package deep is
    type bit3 is array (0 to 2) of bit;
    type aoa is array (natural range <>) of bit3;
    type aoaoa is array (3 downto 0) of aoa(1 to 2);
    type un2 is array (natural range <>, integer range <>) of bit_vector;
    type un3 is array (positive range <>) of un2;
    subtype un3_a is un3(1 to 2)(0 to 1, -1 to 1)(7 downto 0);
    subtype un3_b is un3(open)(0 to 1, -1 to 1)(open);
    subtype un3_c is un3(5 downto 4);
    type inner is record a : bit; v : bit_vector; n : integer range 0 to 5; end record;
    type mid is record i : inner; j : inner(v(3 downto 0)); k : aoa(0 to 1); end record;
    type outer is record m : mid; x : mid(i(v(1 to 2))); end record;
    subtype outer_c is outer(m(i(v(0 to 0))));
    type rarr is array (natural range <>) of mid;
    subtype rarr_c is rarr(0 to 3)(i(v(7 downto 0)));
    type phys is range 0 to 1000000 units nm; um = 1000 nm; mm = 1000 um; inch = 25400 um; end units;
    subtype short is phys range 0 nm to 1 um;
    type smallp is range -5 to 5 units x; y = 3 x; end units;
    type e1 is ('a', 'b', ''', ' ', '"', \ext id\, nul2, 'A', a_b);
    type e2 is (a, b, c);
    type one is (only);
    subtype e1s is e1 range 'b' to \ext id\;
    subtype e2d is e2 range c downto a;
    subtype e2null is e2 range c to a;
    type bye is array (e1) of integer;
    type bye2 is array (e1 range 'a' to 'b', e2d) of e2;
    type r1 is range 0.0 to 1.0e-3;
    type r2 is range 1.0e30 downto -2.5;
    subtype r1s is r1 range 1.0e-4 to 2.0e-4;
    subtype realpos is real range 0.0 to real'high;
    type i1 is range -(2**31) to 2**31-1;
    type i2 is range 10 downto -10;
    type i64 is range -1099511627776 to 1099511627776;
    subtype i2n is i2 range 5 to 4;
    subtype nullv is bit_vector(0 downto 1);
    type nullarr is array (1 to 0) of bit;
    type inc;
    type ptr is access inc;
    type inc is record nxt : ptr; prev : ptr; val : integer; end record;
    type sptr is access string;
    type s8ptr is access string(1 to 8);
    type bptr is access un3;
    type ptrarr is array (0 to 3) of ptr;
    type fint is file of integer;
    type fstr is file of string;
    type frec is file of bit3;
    type prot is protected procedure p; end protected;
    type widemem is array (0 to 2**20-1) of bit_vector(63 downto 0);
    subtype resolved_t is bit;
    function rf(x : bit_vector) return bit;
    subtype rbit is rf bit;
    type rvec is array (natural range <>) of rbit;
    subtype rv is (rf) bit_vector;
    constant W : integer := 5;
    type cw is array (W-1 downto 0) of bit;
    subtype cws is bit_vector(W*2-1 downto W);
end package;
package body deep is
    type prot is protected body
        variable v : integer;
        procedure p is begin end;
    end protected body;
    function rf(x : bit_vector) return bit is
    begin
        return '0';
    end;
    type in_body is (ib1, ib2);
end package body;
use work.deep.all;
entity g is
    generic (N : integer := 4; M : time := 1 ns);
    port (p : in bit_vector(N-1 downto 0));
end;
architecture a of g is
    type loc is array (0 to N) of bit_vector(N-1 downto 0);
    subtype ls is integer range 0 to N*2;
    type lr is record a : ls; b : loc; end record;
    signal s : loc;
    signal t : ls;
    signal u : lr;
    type lenum is (x0, x1);
    signal le : lenum;
begin
    b : block
        type bt is (b0, b1);
        signal bs : bt;
    begin
    end block;
    gg : for i in 0 to 1 generate
        type gt is array (0 to i) of lenum;
        signal gs : gt;
    begin
    end generate;
end;
use work.deep.all;
entity tb is
end;
architecture a of tb is
    signal s1 : un3_a;
    signal s4 : outer_c;
    signal s5 : rarr_c;
    signal s6 : phys;
    signal s7 : short;
    signal s8 : smallp;
    signal s9 : e1;
    signal s10 : e1s;
    signal s11 : e2d;
    signal s12 : bye;
    signal s13 : bye2;
    signal s14 : r1;
    signal s15 : r2;
    signal s16 : r1s;
    signal s17 : realpos := 0.0;
    signal s18 : i1;
    signal s19 : i2;
    signal s21 : nullv;
    signal s22 : nullarr;
    signal s23 : rbit;
    signal s24 : rvec(1 to 3);
    signal s25 : cw;
    signal s26 : cws;
    signal s27 : aoaoa;
    signal s28 : one;
    signal s29 : un3(1 to 1)(2 to 3, 4 downto 4)(9 to 10);
    signal s30 : outer(m(i(v(1 to 9))));
    signal p4 : bit_vector(3 downto 0);
    signal p9 : bit_vector(8 downto 0);
    signal st : string(1 to 3);
    signal dl : delay_length;
    signal tm : time;
    signal na : natural;
    signal bo : boolean;
    signal ch : character;
    signal sl : severity_level;
    signal rv1 : rv(3 downto 0);
begin
    u1 : entity work.g generic map (4) port map (p4);
    u2 : entity work.g generic map (9) port map (p9);
    process
        type lp is (l1, l2);
        variable v : lp;
        variable pt : ptr;
    begin
        wait;
    end process;
end;
