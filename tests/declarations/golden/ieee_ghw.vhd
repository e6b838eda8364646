-- Types of a type file, declared in VHDL (IEEE 1076-2008). A type file has no resolution
-- functions and no ranges of physical types. A name that is taken, or missing, has the id of
-- its type at the end.
package types is
    -- type 0: sequential enumeration "std_ulogic"
    type std_ulogic is ('U', 'X', '0', '1', 'Z', 'W', 'L', 'H', '-');
    -- type 1: integer "integer": predefined
    -- type 2: typedef "natural": predefined
    -- type 3: VHDL array "std_ulogic_vector"
    type std_ulogic_vector is array (natural range <>) of std_ulogic;
    -- type 4: typedef ""
    subtype type_4 is std_ulogic_vector(7 downto 0);
    -- type 5: VHDL array "unresolved_unsigned"
    type unresolved_unsigned is array (natural range <>) of std_ulogic;
    -- type 6: typedef ""
    subtype type_6 is unresolved_unsigned(3 downto 0);
    -- type 7: VHDL array "unresolved_signed"
    type unresolved_signed is array (natural range <>) of std_ulogic;
    -- type 8: typedef ""
    subtype type_8 is unresolved_signed(0 to 3);
    -- type 9: real "real": predefined
    -- type 10: real "real": predefined
    -- type 11: record "complex"
    type complex is record
        re : real;
        im : real;
    end record;
    -- type 12: real "positive_real"
    type positive_real is range 0.0 to 1.7976931348623157e+308;
    -- type 13: real "principal_value"
    type principal_value is range -3.141592653589793 to 3.141592653589793;
    -- type 14: record "complex_polar"
    type complex_polar is record
        mag : positive_real;
        arg : principal_value;
    end record;
    -- type 15: typedef "integer": predefined
    -- type 16: VHDL array "unresolved_ufixed"
    type unresolved_ufixed is array (integer range <>) of std_ulogic;
    -- type 17: typedef ""
    subtype type_17 is unresolved_ufixed(3 downto -4);
    -- type 18: VHDL array "unresolved_sfixed"
    type unresolved_sfixed is array (integer range <>) of std_ulogic;
    -- type 19: typedef ""
    subtype type_19 is unresolved_sfixed(7 downto -8);
    -- type 20: VHDL array "unresolved_float"
    type unresolved_float is array (integer range <>) of std_ulogic;
    -- type 21: typedef "float32"
    subtype float32 is unresolved_float(8 downto -23);
    -- type 22: typedef ""
    subtype type_22 is unresolved_float(4 downto -3);
    -- type 23: sequential enumeration "bit": predefined
    -- type 24: VHDL array "unsigned"
    type unsigned is array (natural range <>) of bit;
    -- type 25: typedef ""
    subtype type_25 is unsigned(1 downto 0);
    -- type 26: VHDL array "integer_vector": predefined
    -- type 27: typedef ""
    subtype type_27 is integer_vector(0 to 2);
    -- type 28: VHDL array "real_vector": predefined
    -- type 29: typedef ""
    subtype type_29 is real_vector(1 downto 0);
    -- type 30: physical type "time": predefined
    -- type 31: typedef "time": predefined
    -- type 32: VHDL array "time_vector": predefined
    -- type 33: typedef ""
    subtype type_33 is time_vector(0 to 1);
    -- type 34: sequential enumeration "boolean": predefined
    -- type 35: VHDL array "boolean_vector": predefined
    -- type 36: typedef ""
    subtype type_36 is boolean_vector(0 to 1);
    -- type 37: sequential enumeration "character": predefined
    -- type 38: typedef "positive": predefined
    -- type 39: VHDL array "string": predefined
    -- type 40: typedef ""
    subtype type_40 is string(1 to 5);
    -- type 41: sequential enumeration "severity_level": predefined
    -- type 42: sequential enumeration "file_open_status": predefined
    -- type 43: sequential enumeration "file_open_kind": predefined
    -- type 44: typedef "delay_length": predefined
    -- type 45: typedef "x01z"
    subtype x01z is std_ulogic range 'X' to 'Z';
    -- type 46: sequential enumeration "side"
    type side is (right, left);
    -- type 47: sequential enumeration "round_type"
    type round_type is (round_nearest, round_inf, round_neginf, round_zero);
    -- type 48: sequential enumeration "valid_fpstate"
    type valid_fpstate is (
        nan, quiet_nan, neg_inf, neg_normal, neg_denormal, neg_zero, pos_zero, pos_denormal,
        pos_normal, pos_inf, isx);
    -- type 49: VHDL array "bit_vector": predefined
    -- type 50: typedef ""
    subtype type_50 is bit_vector(0 to 7);
end package types;
