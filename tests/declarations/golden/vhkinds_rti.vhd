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
    type color_t is (red, green, blue);
    type mixed_enum is (idle, 'a', 'X', \extended id\);
    subtype warm_t is color_t range red to green;
    type small_int is range -5 to 10;
    type down_int is range 7 downto 0;
    subtype nib_t is integer range 0 to 15;
    type my_real is range -1.5 to 2.5;
    type prob_t is range 0.0 to 1.0;
    type resist is range -9223372036854775807 to 9223372036854775807 /* not recorded */
        units
            ohm;
            kohm = 1000 ohm;
            mohm = 1000000 ohm;
        end units;
    type byte_arr is array (natural range <>) of std_ulogic_vector(7 downto 0);
    type open_arr is array (natural range <>) of std_logic_vector;
    type fix_arr is array (0 to 3) of integer;
    type down_arr is array (3 downto 1) of bit;
    type two_d is array (1 to 2, 7 downto 4) of boolean;
    type by_enum is array (0 to 2) of character;
    type by_enum_sub is array (1 to 2) of real;
    type matrix is array (natural range <>, positive range <>) of real;
    subtype m23 is matrix(0 to 1, 1 to 3);
    subtype ba4 is byte_arr(0 to 3);
    subtype oa_c is open_arr(0 to 1)(3 downto 0);
    type rec_in is record
        a : std_logic;
        b : unresolved_unsigned(3 downto 0);
    end record;
    type rec_t is record
        i : nib_t;
        v : std_ulogic_vector(15 downto 0);
        n : rec_in;
        t : time;
        e : color_t;
        arr : ba4;
    end record;
    type rec_open is record
        k : integer;
        d : std_logic_vector;
    end record;
    subtype rec_open8 is rec_open(d(7 downto 0));
    type node_t;
    type node_ptr is access node_t;
    type node_t is record
        val : integer;
        nxt : node_ptr;
    end record;
    type str_ptr is access string;
    type arr_ptr is access byte_arr;
    type int_file is file of integer;
    type rec_file is file of rec_in;
end package types;
