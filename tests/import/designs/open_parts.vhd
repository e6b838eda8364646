-- Generic packages, records and arrays that leave ranges of their parts open, null and
-- descending ranges, types in bodies, blocks and generates.
package gen is
  generic (type t; width : positive; depth : natural := 4);
  type store is array (0 to depth - 1) of t;
  subtype word is bit_vector(width - 1 downto 0);
  type entry is record key : word; val : t; end record;
  type ptr is access entry;
end package;
package gi is new work.gen generic map (t => integer, width => 5);
package gb is new work.gen generic map (t => boolean, width => 9, depth => 2);
library ieee; use ieee.std_logic_1164.all; use ieee.numeric_std.all;
package deep is
  type open_rec is record a : std_logic_vector; b : unsigned; c : integer; end record;
  type outer is record x : open_rec; y : open_rec(a(3 downto 0)); z : bit; end record;
  subtype o1 is outer(x(a(7 downto 0)));
  subtype o2 is o1(x(b(1 to 2)), y(b(0 downto 0)));
  subtype o3 is o2;
  type mat is array (natural range <>, natural range <>) of std_logic_vector;
  subtype m1 is mat(0 to 1, 3 downto 2)(5 to 6);
  subtype m2 is mat(open)(5 to 6);
  type vecs is array (integer range <>) of m2(1 to 2, 1 to 2);
  subtype nullv is bit_vector(0 downto 1);
  subtype nullv2 is bit_vector(5 to 2);
  type idx is (a0, 'b', \C C\, d9);
  type byidx is array (idx range \C C\ downto a0, boolean, character range 'a' to 'c') of real;
  subtype mid is idx range 'b' to \C C\;
  type bymid is array (mid) of mid;
  type neg is range 5 downto -3;
  type prob is range 1.0 downto 0.0;
  subtype half is prob range 0.5 downto 0.25;
  type cap is range 0 to 1E9 units fF; pF = 1000 fF; nF = 1000 pF; end units;
  subtype smallcap is cap range 0 fF to 10 pF;
  function res(v : bit_vector) return bit;
  subtype rbit is res bit;
  type rvec is array (natural range <>) of rbit;
  function res2(v : neg) return neg;
  type text_file is file of string;
  type intf is file of integer;
  type cell; type link is access cell; type cell is record n : link; v : mid; end record;
  type vecp is access bit_vector;
  type vecp4 is access bit_vector(3 downto 0);
  type prot is protected procedure p; end protected;
end package;
package body deep is
  function res(v : bit_vector) return bit is begin return v(v'low); end;
  function res2(v : neg) return neg is begin return v; end;
  type inbody is (only, in_body);
  type prot is protected body procedure p is begin end; end protected body;
end package body;
library ieee; use ieee.std_logic_1164.all; use ieee.numeric_std.all; use work.deep.all; 
entity tb is generic (n : integer := 3);
    port (p : in work.deep.o3 := (x => (a => (others => '0'), b => "00", c => 0), y => (a => "0000", b => "0", c => 0), z => '0'));
    end;
architecture a of tb is
  type local is (l1, l2);
  signal s1 : work.gi.store; signal s2 : work.gb.store; signal s3 : work.gi.entry;
      signal s4 : work.gb.entry;
  signal d1 : o2; signal d3 : o3; signal m : m1; signal v : vecs(0 to 1); signal nv : nullv;
      signal nv2 : nullv2;
  signal bi : byidx; signal bm : bymid; signal ng : neg; signal pr : prob; signal h : half;
      signal c : smallcap; signal r : rbit; signal rv : rvec(1 to n);
  signal l : local; signal t : time; signal dl : delay_length; signal tv : time_vector(0 to 1);
  signal sg : signed(n downto -1); signal u : std_ulogic_vector(0 to 0);
  signal om : m2(0 to 0, 0 to 0);
  shared variable pv : prot;
begin
  b : block
    type inblock is array (1 to 2, 3 downto 2) of local;
    signal ib : inblock;
  begin end block;
  g : for i in 1 to 2 generate
    type ing is range 0 to 3;
    subtype vv is bit_vector(i downto 0);
    signal x : ing; signal y : vv;
  begin end generate;
end;
