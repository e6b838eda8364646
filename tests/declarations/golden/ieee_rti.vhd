-- Types of a type file, declared in VHDL (IEEE 1076-2008). A type file has no resolution
-- functions and no ranges of physical types. A name that is taken, or missing, has the id of
-- its type at the end.
package types is
    -- type 0: sequential enumeration "boolean": predefined
    -- type 1: sequential enumeration "bit": predefined
    -- type 2: sequential enumeration "character": predefined
    -- type 3: sequential enumeration "severity_level": predefined
    -- type 4: real "UNIVERSAL_REAL"
    type UNIVERSAL_REAL is range -1.79769e+308 to 1.79769e+308;
    -- type 5: integer "integer": predefined
    -- type 6: real "real"
    type real is range -1.79769e+308 to 1.79769e+308;
    -- type 7: physical type "time": predefined
    -- type 8: typedef "delay_length": predefined
    -- type 9: typedef "natural": predefined
    -- type 10: typedef "positive": predefined
    -- type 11: VHDL array "string": predefined
    -- type 12: VHDL array "boolean_vector": predefined
    -- type 13: VHDL array "bit_vector": predefined
    -- type 14: VHDL array "integer_vector": predefined
    -- type 15: VHDL array "real_vector"
    type real_vector is array (natural range <>) of real;
    -- type 16: VHDL array "time_vector": predefined
    -- type 17: sequential enumeration "file_open_kind": predefined
    -- type 18: sequential enumeration "file_open_status": predefined
    -- type 19: access type "line"
    type line is access string;
    -- type 20: file type "text"
    type text is file of string;
    -- type 21: sequential enumeration "side"
    type side is (right, left);
    -- type 22: typedef "width"
    subtype width is integer range 0 to 2147483647;
    -- type 23: sequential enumeration "std_ulogic"
    type std_ulogic is ('U', 'X', '0', '1', 'Z', 'W', 'L', 'H', '-');
    -- type 24: VHDL array "std_ulogic_vector"
    type std_ulogic_vector is array (natural range <>) of std_ulogic;
    -- type 25: typedef "std_logic"
    subtype std_logic is std_ulogic range 'U' to '-';
    -- type 26: typedef "std_logic_vector"
    subtype std_logic_vector is std_ulogic_vector;
    -- type 27: typedef "x01"
    subtype x01 is std_ulogic range 'X' to '1';
    -- type 28: typedef "x01z"
    subtype x01z is std_ulogic range 'X' to 'Z';
    -- type 29: typedef "ux01"
    subtype ux01 is std_ulogic range 'U' to '1';
    -- type 30: typedef "ux01z"
    subtype ux01z is std_ulogic range 'U' to 'Z';
    -- type 31: VHDL array "unresolved_unsigned"
    type unresolved_unsigned is array (natural range <>) of std_ulogic;
    -- type 32: VHDL array "unresolved_signed"
    type unresolved_signed is array (natural range <>) of std_ulogic;
    -- type 33: typedef "u_unsigned"
    subtype u_unsigned is unresolved_unsigned;
    -- type 34: typedef "u_signed"
    subtype u_signed is unresolved_signed;
    -- type 35: typedef "unsigned"
    subtype unsigned is unresolved_unsigned;
    -- type 36: typedef "signed"
    subtype signed is unresolved_signed;
    -- type 37: record "complex"
    type complex is record
        re : real;
        im : real;
    end record;
    -- type 38: real "positive_real"
    type positive_real is range 0.0 to 1.79769e+308;
    -- type 39: real "principal_value"
    type principal_value is range -3.14159 to 3.14159;
    -- type 40: record "complex_polar"
    type complex_polar is record
        mag : positive_real;
        arg : principal_value;
    end record;
    -- type 41: sequential enumeration "fixed_round_style_type"
    type fixed_round_style_type is (fixed_round, fixed_truncate);
    -- type 42: sequential enumeration "fixed_overflow_style_type"
    type fixed_overflow_style_type is (fixed_saturate, fixed_wrap);
    -- type 43: sequential enumeration "round_type"
    type round_type is (round_nearest, round_inf, round_neginf, round_zero);
    -- type 44: VHDL array "unsigned"
    type unsigned_44 is array (natural range <>) of bit;
    -- type 45: VHDL array "signed"
    type signed_45 is array (natural range <>) of bit;
end package types;
