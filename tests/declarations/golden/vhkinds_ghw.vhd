-- Types of a type file, declared in VHDL (IEEE 1076-2008). A type file has no resolution
-- functions and no ranges of physical types. A name that is taken, or missing, has the id of
-- its type at the end.
package types is
    type color_t is (red, green, blue);
    type mixed_enum is (idle, 'a', 'X', \extended id\);
    subtype warm_t is color_t range red to green;
    type small_int is range -5 to 10;
    type down_int is range 7 downto 0;
    subtype nib_t is integer range 0 to 15;
    type my_real is range -1.5 to 2.5;
    type my_real_10 is range -1.5 to 2.5;
    type prob_t is range 0.0 to 1.0;
    type resist is range -9223372036854775807 to 9223372036854775807 /* not recorded */
        units
            ohm;
            kohm = 1000 ohm;
            mohm = 1000000 ohm;
        end units;
    type fix_arr_18 is array (integer range <>) of integer;
    subtype fix_arr is fix_arr_18(0 to 3);
    type down_arr_21 is array (integer range <>) of bit;
    subtype down_arr is down_arr_21(3 downto 1);
    type two_d_24 is array (integer range <>, integer range <>) of boolean;
    subtype two_d is two_d_24(1 to 2, 7 downto 4);
    type by_enum_27 is array (color_t range <>) of character;
    subtype by_enum is by_enum_27(red to blue);
    type by_enum_sub_30 is array (color_t range <>) of real;
    subtype by_enum_sub is by_enum_sub_30(green to blue);
    type matrix is array (natural range <>, positive range <>) of real;
    subtype m23 is matrix(0 to 1, 1 to 3);
    type std_ulogic is ('U', 'X', '0', '1', 'Z', 'W', 'L', 'H', '-');
    type std_ulogic_vector is array (natural range <>) of std_ulogic;
    type byte_arr is array (natural range <>) of std_ulogic_vector(7 downto 0);
    subtype ba4 is byte_arr(0 to 3);
    subtype std_logic_vector is std_ulogic_vector;
    type open_arr is array (natural range <>) of std_logic_vector;
    subtype oa_c is open_arr(0 to 1)(3 downto 0);
    subtype std_logic is std_ulogic range 'U' to '-';
    type unresolved_unsigned is array (natural range <>) of std_ulogic;
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
    type rec_open8 is record
        k : integer;
        d : std_logic_vector(7 downto 0);
    end record;
    subtype rbit is bit range '0' to '1';
end package types;
