-- Two instances with different types, types of one name in two packages, ranges of 64 bits.
entity child is generic (w : natural); port (d : in bit_vector(w - 1 downto 0)); end;
architecture a of child is
  type st is (idle, run);
  type mem is array (0 to 2 ** w - 1) of bit_vector(d'range);
  type rec is record m : mem; s : st; end record;
  signal r : rec; signal s : st;
begin end;
package p1 is type t is (a, b, c); type u is array (t) of integer; constant k : t := b; end package;
package p2 is type t is (c, b, a); type u is array (t range c to b) of integer;
    alias w is work.p1.u; end package;
package time64 is
  type longtime is range -9223372036854775807 - 1 to 9223372036854775807;
  type dur is range -9223372036854775807 - 1 to 9223372036854775807 units tick;
      sec = 1000000000000 tick; big = 3600 sec; end units;
  subtype posdur is dur range 0 tick to dur'high;
  type e1 is ('0'); type e3 is (
l0,l1,l2,l3,l4,l5,l6,l7,l8,l9
  );
  type a300 is array (e3 range l9 downto l5) of e1;
  type r0 is record a, b, c : e1; end record;
  type n3 is record r : r0; x : r0; end record;
  type an3 is array (1 to 1) of n3;
  type aan3 is array (natural range <>) of an3;
  subtype s5 is aan3(9 to 8);
  type real2 is range -1.0e-300 to 1.0e308;
end package;
entity tb is end;
architecture a of tb is
  signal d3 : bit_vector(2 downto 0); signal d1 : bit_vector(0 downto 0);
  signal t1 : work.p1.t; signal t2 : work.p2.t; signal u1 : work.p1.u; signal u2 : work.p2.u;
      signal w2 : work.p2.w;
  signal lt : work.time64.longtime; signal du : work.time64.dur; signal pd : work.time64.posdur;
  signal a3 : work.time64.a300; signal aa : work.time64.aan3(1 to 2); signal s5 : work.time64.s5;
      signal rr : work.time64.real2; signal ee : work.time64.e1; signal nn : work.time64.n3;
begin
  c3 : entity work.child generic map (3) port map (d3);
  c1 : entity work.child generic map (1) port map (d1);
end;
