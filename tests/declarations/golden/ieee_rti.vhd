-- Types of a type file, declared in VHDL (IEEE 1076-2008). A type file has no resolution
-- functions and no ranges of physical types. A name that is taken, or missing, has the id of
-- its type at the end.
package types is
    type UNIVERSAL_REAL is range -1.79769e+308 to 1.79769e+308;
    type real is range -1.79769e+308 to 1.79769e+308;
    type real_vector is array (natural range <>) of real;
    type line is access string;
    type text is file of string;
    type side is (right, left);
    subtype width is integer range 0 to 2147483647;
    type std_ulogic is ('U', 'X', '0', '1', 'Z', 'W', 'L', 'H', '-');
    type std_ulogic_vector is array (natural range <>) of std_ulogic;
    subtype std_logic is std_ulogic range 'U' to '-';
    subtype std_logic_vector is std_ulogic_vector;
    subtype x01 is std_ulogic range 'X' to '1';
    subtype x01z is std_ulogic range 'X' to 'Z';
    subtype ux01 is std_ulogic range 'U' to '1';
    subtype ux01z is std_ulogic range 'U' to 'Z';
    type unresolved_unsigned is array (natural range <>) of std_ulogic;
    type unresolved_signed is array (natural range <>) of std_ulogic;
    subtype u_unsigned is unresolved_unsigned;
    subtype u_signed is unresolved_signed;
    subtype unsigned is unresolved_unsigned;
    subtype signed is unresolved_signed;
    type complex is record
        re : real;
        im : real;
    end record;
    type positive_real is range 0.0 to 1.79769e+308;
    type principal_value is range -3.14159 to 3.14159;
    type complex_polar is record
        mag : positive_real;
        arg : principal_value;
    end record;
    type fixed_round_style_type is (fixed_round, fixed_truncate);
    type fixed_overflow_style_type is (fixed_saturate, fixed_wrap);
    type round_type is (round_nearest, round_inf, round_neginf, round_zero);
    type unsigned_44 is array (natural range <>) of bit;
    type signed_45 is array (natural range <>) of bit;
end package types;
