-- Types of a type file, declared in VHDL (IEEE 1076-2008). A type file has no resolution
-- functions and no ranges of physical types. A name that is taken, or missing, has the id of
-- its type at the end.
package types is
    -- type 12: VHDL array "boolean_vector": predefined
    -- type 13: VHDL array "bit_vector": predefined
    -- type 23: sequential enumeration "std_ulogic"
    type std_ulogic is ('U', 'X', '0', '1', 'Z', 'W', 'L', 'H', '-');
    -- type 9: typedef "natural": predefined
    -- type 24: VHDL array "std_ulogic_vector"
    type std_ulogic_vector is array (natural range <>) of std_ulogic;
    -- type 43: record "trace_port_t"
    type trace_port_t is record
        valid : std_ulogic;
        order : std_ulogic_vector(63 downto 0);
        insn : std_ulogic_vector(31 downto 0);
        trap : std_ulogic;
        halt : std_ulogic;
        intr : std_ulogic;
        mode : std_ulogic_vector(1 downto 0);
        ixl : std_ulogic_vector(1 downto 0);
        debug : std_ulogic;
        compr : std_ulogic;
        delta : std_ulogic;
        cmd32 : std_ulogic_vector(31 downto 0);
        rs1_addr : std_ulogic_vector(4 downto 0);
        rs2_addr : std_ulogic_vector(4 downto 0);
        rs1_rdata : std_ulogic_vector(31 downto 0);
        rs2_rdata : std_ulogic_vector(31 downto 0);
        rd_addr : std_ulogic_vector(4 downto 0);
        rd_rdata : std_ulogic_vector(31 downto 0);
        pc_rdata : std_ulogic_vector(31 downto 0);
        pc_wdata : std_ulogic_vector(31 downto 0);
        csr_addr : std_ulogic_vector(11 downto 0);
        csr_rdata : std_ulogic_vector(31 downto 0);
        csr_wdata : std_ulogic_vector(31 downto 0);
        mem_addr : std_ulogic_vector(31 downto 0);
        mem_rmask : std_ulogic_vector(3 downto 0);
        mem_wmask : std_ulogic_vector(3 downto 0);
        mem_rdata : std_ulogic_vector(31 downto 0);
        mem_wdata : std_ulogic_vector(31 downto 0);
    end record;
    -- type 48: VHDL array "cpu_trace_t"
    type cpu_trace_t is array (1 downto 0) of trace_port_t;
    -- type 37: record "bus_req_t"
    type bus_req_t is record
        meta : std_ulogic_vector(4 downto 0);
        addr : std_ulogic_vector(31 downto 0);
        data : std_ulogic_vector(31 downto 0);
        ben : std_ulogic_vector(3 downto 0);
        stb : std_ulogic;
        rw : std_ulogic;
        amo : std_ulogic;
        amoop : std_ulogic_vector(3 downto 0);
        burst : std_ulogic;
        lock : std_ulogic;
    end record;
    -- type 49: VHDL array "core_complex_req_t"
    type core_complex_req_t is array (1 downto 0) of bus_req_t;
    -- type 38: record "bus_rsp_t"
    type bus_rsp_t is record
        ack : std_ulogic;
        err : std_ulogic;
        data : std_ulogic_vector(31 downto 0);
    end record;
    -- type 50: VHDL array "core_complex_rsp_t"
    type core_complex_rsp_t is array (1 downto 0) of bus_rsp_t;
    -- type 70: VHDL array "cnt_we_t"
    type cnt_we_t is array (31 downto 0) of std_ulogic_vector(1 downto 0);
    -- type 78: VHDL array "cp_data_t"
    type cp_data_t is array (6 downto 0) of std_ulogic_vector(31 downto 0);
    -- type 84: VHDL array "bs_level_t"
    type bs_level_t is array (5 downto 0) of std_ulogic_vector(31 downto 0);
    -- type 119: VHDL array "csr_cfg_rd_t"
    type csr_cfg_rd_t is array (15 downto 0) of std_ulogic_vector(7 downto 0);
    -- type 120: VHDL array "csr_cfg_rd32_t"
    type csr_cfg_rd32_t is array (3 downto 0) of std_ulogic_vector(31 downto 0);
    -- type 121: VHDL array "csr_addr_rd_t"
    type csr_addr_rd_t is array (15 downto 0) of std_ulogic_vector(31 downto 0);
    -- type 122: VHDL array "addr_mask_t"
    type addr_mask_t is array (4 downto 0) of std_ulogic_vector(31 downto 2);
    -- type 123: VHDL array "cmp_t"
    type cmp_t is array (4 downto 0) of std_ulogic_vector(1 downto 0);
    -- type 167: VHDL array "cnt_we_t"
    type cnt_we_t_167 is array (31 downto 0) of std_ulogic_vector(1 downto 0);
    -- type 175: VHDL array "cp_data_t"
    type cp_data_t_175 is array (6 downto 0) of std_ulogic_vector(31 downto 0);
    -- type 180: VHDL array "bs_level_t"
    type bs_level_t_180 is array (5 downto 0) of std_ulogic_vector(31 downto 0);
    -- type 200: VHDL array "csr_cfg_rd_t"
    type csr_cfg_rd_t_200 is array (15 downto 0) of std_ulogic_vector(7 downto 0);
    -- type 201: VHDL array "csr_cfg_rd32_t"
    type csr_cfg_rd32_t_201 is array (3 downto 0) of std_ulogic_vector(31 downto 0);
    -- type 202: VHDL array "csr_addr_rd_t"
    type csr_addr_rd_t_202 is array (15 downto 0) of std_ulogic_vector(31 downto 0);
    -- type 203: VHDL array "addr_mask_t"
    type addr_mask_t_203 is array (4 downto 0) of std_ulogic_vector(31 downto 2);
    -- type 204: VHDL array "cmp_t"
    type cmp_t_204 is array (4 downto 0) of std_ulogic_vector(1 downto 0);
    -- type 0: sequential enumeration "boolean": predefined
    -- type 266: VHDL array "dev_en_list_t"
    type dev_en_list_t is array (31 downto 0) of boolean;
    -- type 267: VHDL array "dev_base_list_t"
    type dev_base_list_t is array (31 downto 0) of std_ulogic_vector(31 downto 0);
    -- type 268: VHDL array "dev_req_t"
    type dev_req_t is array (31 downto 0) of bus_req_t;
    -- type 269: VHDL array "dev_rsp_t"
    type dev_rsp_t is array (31 downto 0) of bus_rsp_t;
    -- type 271: VHDL array "cfs_regs_t"
    type cfs_regs_t is array (3 downto 0) of std_ulogic_vector(31 downto 0);
    -- type 340: VHDL array "cpu_progbuf_t"
    type cpu_progbuf_t is array (3 downto 0) of std_ulogic_vector(31 downto 0);
    -- type 343: VHDL array "code_rom_t"
    type code_rom_t is array (0 to 15) of std_ulogic_vector(31 downto 0);
    -- type 356: VHDL array "dev_en_list_t"
    type dev_en_list_t_356 is array (7 downto 0) of boolean;
    -- type 357: VHDL array "dev_base_list_t"
    type dev_base_list_t_357 is array (7 downto 0) of std_ulogic_vector(31 downto 0);
    -- type 358: VHDL array "dev_size_list_t"
    type dev_size_list_t is array (7 downto 0) of natural;
    -- type 41: record "xbus_req_t"
    type xbus_req_t is record
        addr : std_ulogic_vector(31 downto 0);
        data : std_ulogic_vector(31 downto 0);
        cti : std_ulogic_vector(2 downto 0);
        tag : std_ulogic_vector(2 downto 0);
        we : std_ulogic;
        sel : std_ulogic_vector(3 downto 0);
        stb : std_ulogic;
        cyc : std_ulogic;
    end record;
    -- type 359: VHDL array "dev_req_t"
    type dev_req_t_359 is array (7 downto 0) of xbus_req_t;
    -- type 42: record "xbus_rsp_t"
    type xbus_rsp_t is record
        data : std_ulogic_vector(31 downto 0);
        ack : std_ulogic;
        err : std_ulogic;
    end record;
    -- type 360: VHDL array "dev_rsp_t"
    type dev_rsp_t_360 is array (7 downto 0) of xbus_rsp_t;
    -- type 365: VHDL array "data_mem_t"
    type data_mem_t is array (3 downto 0) of std_ulogic_vector(7 downto 0);
end package types;
