-- Types of a type file, declared in VHDL (IEEE 1076-2008). A type file has no resolution
-- functions and no ranges of physical types. A name that is taken, or missing, has the id of
-- its type at the end.
package types is
    -- type 0: sequential enumeration "color_t"
    type color_t is (red, green, blue);
    -- type 1: sequential enumeration "mixed_enum"
    type mixed_enum is (idle, 'a', 'X', \extended id\);
    -- type 2: typedef "warm_t"
    subtype warm_t is color_t range red to green;
    -- type 3: integer "small_int"
    type small_int is range -5 to 10;
    -- type 4: typedef "small_int": declared as type 3
    -- type 5: integer "down_int"
    type down_int is range 7 downto 0;
    -- type 6: typedef "down_int": declared as type 5
    -- type 7: integer "integer": predefined
    -- type 8: typedef "nib_t"
    subtype nib_t is integer range 0 to 15;
    -- type 9: real "my_real"
    type my_real is range -1.5 to 2.5;
    -- type 10: real "my_real"
    type my_real_10 is range -1.5 to 2.5;
    -- type 11: real "real": predefined
    -- type 12: real "prob_t"
    type prob_t is range 0.0 to 1.0;
    -- type 13: physical type "resist"
    type resist is range -9223372036854775807 to 9223372036854775807 /* not recorded */
        units
            ohm;
            kohm = 1000 ohm;
            mohm = 1000000 ohm;
        end units;
    -- type 14: typedef "resist": declared as type 13
    -- type 15: physical type "time": predefined
    -- type 16: typedef "time": predefined
    -- type 17: typedef "integer": predefined
    -- type 18: VHDL array "fix_arr"
    type fix_arr_18 is array (integer range <>) of integer;
    -- type 19: typedef "fix_arr"
    subtype fix_arr is fix_arr_18(0 to 3);
    -- type 20: sequential enumeration "bit": predefined
    -- type 21: VHDL array "down_arr"
    type down_arr_21 is array (integer range <>) of bit;
    -- type 22: typedef "down_arr"
    subtype down_arr is down_arr_21(3 downto 1);
    -- type 23: sequential enumeration "boolean": predefined
    -- type 24: VHDL array "two_d"
    type two_d_24 is array (integer range <>, integer range <>) of boolean;
    -- type 25: typedef "two_d"
    subtype two_d is two_d_24(1 to 2, 7 downto 4);
    -- type 26: sequential enumeration "character": predefined
    -- type 27: VHDL array "by_enum"
    type by_enum_27 is array (color_t range <>) of character;
    -- type 28: typedef "by_enum"
    subtype by_enum is by_enum_27(red to blue);
    -- type 29: real "real": predefined
    -- type 30: VHDL array "by_enum_sub"
    type by_enum_sub_30 is array (color_t range <>) of real;
    -- type 31: typedef "by_enum_sub"
    subtype by_enum_sub is by_enum_sub_30(green to blue);
    -- type 32: typedef "natural": predefined
    -- type 33: typedef "positive": predefined
    -- type 34: VHDL array "matrix"
    type matrix is array (natural range <>, positive range <>) of real;
    -- type 35: typedef "m23"
    subtype m23 is matrix(0 to 1, 1 to 3);
    -- type 36: sequential enumeration "std_ulogic"
    type std_ulogic is ('U', 'X', '0', '1', 'Z', 'W', 'L', 'H', '-');
    -- type 37: VHDL array "std_ulogic_vector"
    type std_ulogic_vector is array (natural range <>) of std_ulogic;
    -- type 38: typedef ""
    subtype type_38 is std_ulogic_vector(7 downto 0);
    -- type 39: VHDL array "byte_arr"
    type byte_arr is array (natural range <>) of std_ulogic_vector(7 downto 0);
    -- type 40: typedef "ba4"
    subtype ba4 is byte_arr(0 to 3);
    -- type 41: typedef "std_logic_vector"
    subtype std_logic_vector is std_ulogic_vector;
    -- type 42: VHDL array "open_arr"
    type open_arr is array (natural range <>) of std_logic_vector;
    -- type 43: typedef "oa_c"
    subtype oa_c is open_arr(0 to 1)(3 downto 0);
    -- type 44: typedef ""
    subtype type_44 is std_ulogic_vector(15 downto 0);
    -- type 45: typedef "std_logic"
    subtype std_logic is std_ulogic range 'U' to '-';
    -- type 46: VHDL array "unresolved_unsigned"
    type unresolved_unsigned is array (natural range <>) of std_ulogic;
    -- type 47: typedef ""
    subtype type_47 is unresolved_unsigned(3 downto 0);
    -- type 48: record "rec_in"
    type rec_in is record
        a : std_logic;
        b : unresolved_unsigned(3 downto 0);
    end record;
    -- type 49: record "rec_t"
    type rec_t is record
        i : nib_t;
        v : std_ulogic_vector(15 downto 0);
        n : rec_in;
        t : time;
        e : color_t;
        arr : ba4;
    end record;
    -- type 50: record "rec_open"
    type rec_open is record
        k : integer;
        d : std_logic_vector;
    end record;
    -- type 51: record "rec_open8"
    type rec_open8 is record
        k : integer;
        d : std_logic_vector(7 downto 0);
    end record;
    -- type 52: typedef "rbit"
    subtype rbit is bit range '0' to '1';
    -- type 53: typedef ""
    subtype type_53 is std_ulogic_vector(11 downto 0);
    -- type 54: typedef ""
    subtype type_54 is std_ulogic_vector(0 to 6);
    -- type 55: typedef ""
    subtype type_55 is unresolved_unsigned(3 downto 0);
    -- type 56: VHDL array "string": predefined
    -- type 57: typedef ""
    subtype type_57 is string(1 to 4);
    -- type 58: VHDL array "bit_vector": predefined
    -- type 59: typedef ""
    subtype type_59 is bit_vector(0 to 3);
    -- type 60: sequential enumeration "severity_level": predefined
    -- type 61: typedef ""
    subtype type_61 is byte_arr(5 downto 2);
    -- type 62: typedef ""
    subtype type_62 is std_ulogic_vector(0 downto 1);
end package types;
