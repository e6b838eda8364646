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
    -- type 37: sequential enumeration "color_t"
    type color_t is (red, green, blue);
    -- type 38: sequential enumeration "mixed_enum"
    type mixed_enum is (idle, 'a', 'X', \extended id\);
    -- type 39: typedef "warm_t"
    subtype warm_t is color_t range red to green;
    -- type 40: integer "small_int"
    type small_int is range -5 to 10;
    -- type 41: integer "down_int"
    type down_int is range 7 downto 0;
    -- type 42: typedef "nib_t"
    subtype nib_t is integer range 0 to 15;
    -- type 43: real "my_real"
    type my_real is range -1.5 to 2.5;
    -- type 44: real "prob_t"
    type prob_t is range 0.0 to 1.0;
    -- type 45: physical type "resist"
    type resist is range -9223372036854775807 to 9223372036854775807 /* not recorded */
        units
            ohm;
            kohm = 1000 ohm;
            mohm = 1000000 ohm;
        end units;
    -- type 46: VHDL array "byte_arr"
    type byte_arr is array (natural range <>) of std_ulogic_vector(7 downto 0);
    -- type 47: VHDL array "open_arr"
    type open_arr is array (natural range <>) of std_logic_vector;
    -- type 48: VHDL array "fix_arr"
    type fix_arr is array (0 to 3) of integer;
    -- type 49: VHDL array "down_arr"
    type down_arr is array (3 downto 1) of bit;
    -- type 50: VHDL array "two_d"
    type two_d is array (1 to 2, 7 downto 4) of boolean;
    -- type 51: VHDL array "by_enum"
    type by_enum is array (0 to 2) of character;
    -- type 52: VHDL array "by_enum_sub"
    type by_enum_sub is array (1 to 2) of real;
    -- type 53: VHDL array "matrix"
    type matrix is array (natural range <>, positive range <>) of real;
    -- type 54: typedef "m23"
    subtype m23 is matrix(0 to 1, 1 to 3);
    -- type 55: typedef "ba4"
    subtype ba4 is byte_arr(0 to 3);
    -- type 56: typedef "oa_c"
    subtype oa_c is open_arr(0 to 1)(3 downto 0);
    -- type 57: record "rec_in"
    type rec_in is record
        a : std_logic;
        b : unresolved_unsigned(3 downto 0);
    end record;
    -- type 58: record "rec_t"
    type rec_t is record
        i : nib_t;
        v : std_ulogic_vector(15 downto 0);
        n : rec_in;
        t : time;
        e : color_t;
        arr : ba4;
    end record;
    -- type 59: record "rec_open"
    type rec_open is record
        k : integer;
        d : std_logic_vector;
    end record;
    -- type 60: typedef "rec_open8"
    subtype rec_open8 is rec_open(d(7 downto 0));
    type node_t;
    -- type 62: access type "node_ptr"
    type node_ptr is access node_t;
    -- type 61: record "node_t"
    type node_t is record
        val : integer;
        nxt : node_ptr;
    end record;
    -- type 63: access type "str_ptr"
    type str_ptr is access string;
    -- type 64: access type "arr_ptr"
    type arr_ptr is access byte_arr;
    -- type 65: file type "int_file"
    type int_file is file of integer;
    -- type 66: file type "rec_file"
    type rec_file is file of rec_in;
end package types;
