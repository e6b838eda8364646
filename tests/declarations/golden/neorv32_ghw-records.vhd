-- Types of a type file, declared in VHDL (IEEE 1076-2008). A type file has no resolution
-- functions and no ranges of physical types. A name that is taken, or missing, has the id of
-- its type at the end.
package types is
    type std_ulogic is ('U', 'X', '0', '1', 'Z', 'W', 'L', 'H', '-');
    type std_ulogic_vector is array (natural range <>) of std_ulogic;
    type ctrl_bus_t is record
        if_reset : std_ulogic;
        if_ready : std_ulogic;
        if_fence : std_ulogic;
        pc_cur : std_ulogic_vector(31 downto 0);
        pc_nxt : std_ulogic_vector(31 downto 0);
        pc_ret : std_ulogic_vector(31 downto 0);
        rf_wb_en : std_ulogic;
        rf_rs1 : std_ulogic_vector(4 downto 0);
        rf_rs2 : std_ulogic_vector(4 downto 0);
        rf_rd : std_ulogic_vector(4 downto 0);
        rf_zero : std_ulogic;
        alu_op : std_ulogic_vector(2 downto 0);
        alu_sub : std_ulogic;
        alu_opa_mux : std_ulogic;
        alu_opb_mux : std_ulogic;
        alu_unsigned : std_ulogic;
        alu_imm : std_ulogic_vector(31 downto 0);
        alu_cp_alu : std_ulogic;
        alu_cp_cfu : std_ulogic;
        alu_cp_fpu : std_ulogic;
        lsu_req : std_ulogic;
        lsu_rd : std_ulogic;
        lsu_wr : std_ulogic;
        lsu_mo_en : std_ulogic;
        lsu_mi_en : std_ulogic;
        lsu_priv : std_ulogic;
        lsu_fence : std_ulogic;
        csr_we : std_ulogic;
        csr_re : std_ulogic;
        csr_addr : std_ulogic_vector(11 downto 0);
        csr_wdata : std_ulogic_vector(31 downto 0);
        cnt_event : std_ulogic_vector(8 downto 0);
        ir_funct3 : std_ulogic_vector(2 downto 0);
        ir_funct12 : std_ulogic_vector(11 downto 0);
        ir_opcode : std_ulogic_vector(6 downto 0);
        ir_rvc : std_ulogic_vector(15 downto 0);
        cpu_exec : std_ulogic;
        cpu_priv : std_ulogic;
        cpu_trap : std_ulogic;
        cpu_sync_exc : std_ulogic;
        cpu_debug : std_ulogic;
    end record;
    type if_bus_t is record
        valid : std_ulogic;
        i32 : std_ulogic_vector(31 downto 0);
        i16 : std_ulogic_vector(15 downto 0);
        compr : std_ulogic;
        fault : std_ulogic;
    end record;
end package types;
