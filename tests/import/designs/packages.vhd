-- Types of a package that is an instance, which listings leave out, in those that they have; types of
-- one name, one of which hides the other.
package gp is generic (n : natural);
  type fx is array (integer range <>) of bit;
  subtype word is fx(3 downto 0);
  subtype any is fx;
end package;
package q is new work.gp generic map (4);
package p is
  type t is (a, b, c);
  type ofx is array (natural range <>) of work.q.fx;
  type oany is array (natural range <>) of work.q.any;
  type af is array (0 to 1) of work.q.fx(3 downto -4);
  type aw is array (1 downto 0, 0 to 2) of work.q.word;
  type rf is record a : work.q.fx; b : work.q.fx(1 downto 0); w : work.q.word; end record;
  subtype rfc is rf(a(2 downto 0));
  type arf is array (0 to 1) of rf(a(5 downto 0));
  subtype f4 is work.q.fx(3 downto 0);
  type far is array (0 to 1) of f4;
  type pf is access work.q.fx;
  type never is record f : work.q.fx(0 to 0); g : work.q.any; end record;
end package;
entity tb is end;
architecture a of tb is
  type t is (x, y);
  type r is record mine : t; theirs : work.p.t; end record;
  type at is array (0 to 1) of work.p.t;
  signal s1 : work.p.ofx(0 to 1)(7 downto 0); signal s2 : work.p.oany(0 to 1)(7 downto 0);
  signal s3 : work.p.af; signal s4 : work.p.aw; signal s5 : work.p.rfc; signal s6 : work.p.arf;
  signal s7 : work.p.far; signal s8 : r; signal s9 : at;
begin end;
