-- Types of a type file, declared in VHDL (IEEE 1076-2008). A type file has no resolution
-- functions and no ranges of physical types. A name that is taken, or missing, has the id of
-- its type at the end.
package types is
    -- type 23: sequential enumeration "std_ulogic"
    type std_ulogic is ('U', 'X', '0', '1', 'Z', 'W', 'L', 'H', '-');
    -- type 25: typedef "std_logic"
    subtype std_logic is std_ulogic range 'U' to '-';
    -- type 9: typedef "natural": predefined
    -- type 31: VHDL array "unresolved_unsigned"
    type unresolved_unsigned is array (natural range <>) of std_ulogic;
    -- type 57: record "rec_in"
    type rec_in is record
        a : std_logic;
        b : unresolved_unsigned(3 downto 0);
    end record;
    -- type 5: integer "integer": predefined
    -- type 42: typedef "nib_t"
    subtype nib_t is integer range 0 to 15;
    -- type 24: VHDL array "std_ulogic_vector"
    type std_ulogic_vector is array (natural range <>) of std_ulogic;
    -- type 7: physical type "time": predefined
    -- type 37: sequential enumeration "color_t"
    type color_t is (red, green, blue);
    -- type 46: VHDL array "byte_arr"
    type byte_arr is array (natural range <>) of std_ulogic_vector(7 downto 0);
    -- type 55: typedef "ba4"
    subtype ba4 is byte_arr(0 to 3);
    -- type 58: record "rec_t"
    type rec_t is record
        i : nib_t;
        v : std_ulogic_vector(15 downto 0);
        n : rec_in;
        t : time;
        e : color_t;
        arr : ba4;
    end record;
    -- type 26: typedef "std_logic_vector"
    subtype std_logic_vector is std_ulogic_vector;
    -- type 59: record "rec_open"
    type rec_open is record
        k : integer;
        d : std_logic_vector;
    end record;
    type node_t;
    -- type 62: access type "node_ptr"
    type node_ptr is access node_t;
    -- type 61: record "node_t"
    type node_t is record
        val : integer;
        nxt : node_ptr;
    end record;
end package types;
