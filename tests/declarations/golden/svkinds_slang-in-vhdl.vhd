-- Types of a type file, declared in VHDL (IEEE 1076-2008). A type file has no resolution
-- functions and no ranges of physical types. A name that is taken, or missing, has the id of
-- its type at the end.
package types is
    -- type 1: discrete enumeration "kinds_pkg::enum_int_e": SystemVerilog
    -- type 3: sequential enumeration "logic": SystemVerilog
    -- type 5: discrete enumeration "kinds_pkg::enum_logic_e": SystemVerilog
    -- type 7: sequential enumeration "bit": SystemVerilog
    -- type 9: discrete enumeration "kinds_pkg::enum_bit_e": SystemVerilog
    -- type 12: discrete enumeration "kinds_pkg::enum_byte_e": SystemVerilog
    -- type 25: sequential enumeration "logic": SystemVerilog
    -- type 90: discrete enumeration "": SystemVerilog
    -- type 93: sequential enumeration "reg": SystemVerilog
    -- type 101: sequential enumeration "bit": SystemVerilog
    -- type 103: sequential enumeration "logic": SystemVerilog
end package types;
