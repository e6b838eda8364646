-- Types of a type file, declared in VHDL (IEEE 1076-2008). A type file has no resolution
-- functions and no ranges of physical types. A name that is taken, or missing, has the id of
-- its type at the end.
package types is
    type std_ulogic is ('U', 'X', '0', '1', 'Z', 'W', 'L', 'H', '-');
    type std_ulogic_vector is array (natural range <>) of std_ulogic;
    type unresolved_unsigned is array (natural range <>) of std_ulogic;
    type unresolved_signed is array (natural range <>) of std_ulogic;
    type complex is record
        re : real;
        im : real;
    end record;
    type positive_real is range 0.0 to 1.7976931348623157e+308;
    type principal_value is range -3.141592653589793 to 3.141592653589793;
    type complex_polar is record
        mag : positive_real;
        arg : principal_value;
    end record;
    type unresolved_ufixed is array (integer range <>) of std_ulogic;
    type unresolved_sfixed is array (integer range <>) of std_ulogic;
    type unresolved_float is array (integer range <>) of std_ulogic;
    subtype float32 is unresolved_float(8 downto -23);
    type unsigned is array (natural range <>) of bit;
    subtype x01z is std_ulogic range 'X' to 'Z';
    type side is (right, left);
    type round_type is (round_nearest, round_inf, round_neginf, round_zero);
    type valid_fpstate is (
        nan, quiet_nan, neg_inf, neg_normal, neg_denormal, neg_zero, pos_zero, pos_denormal,
        pos_normal, pos_inf, isx);
end package types;
