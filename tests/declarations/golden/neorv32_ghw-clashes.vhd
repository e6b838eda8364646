-- Types of a type file, declared in VHDL (IEEE 1076-2008). A type file has no resolution
-- functions and no ranges of physical types. A name that is taken, or missing, has the id of
-- its type at the end.
package types is
    type state_t_269 is (s_idle, s_busy, s_pipe, s_done);
    type std_ulogic is ('U', 'X', '0', '1', 'Z', 'W', 'L', 'H', '-');
    type std_ulogic_vector is array (natural range <>) of std_ulogic;
    type ctrl_t is record
        state : state_t_269;
        cnt : std_ulogic_vector(4 downto 0);
        oe : std_ulogic;
    end record;
    type ctrl_engine_state_t is (s_idle, s_prepare_f2i, s_normalize_busy, s_round, s_finalize);
    type ctrl_t_390 is record
        state : ctrl_engine_state_t;
        unsign : std_ulogic;
        cnt : std_ulogic_vector(7 downto 0);
        sign : std_ulogic;
        class : std_ulogic_vector(9 downto 0);
        rounded : std_ulogic;
        over : std_ulogic;
        under : std_ulogic;
        result_tmp : std_ulogic_vector(31 downto 0);
        result : std_ulogic_vector(31 downto 0);
        flags : std_ulogic_vector(4 downto 0);
    end record;
    type ctrl_engine_state_t_409 is (
        s_idle, s_prepare_i2f, s_check_i2f, s_prepare_norm, s_prepare_shift, s_normalize_busy,
        s_round, s_check, s_finalize);
    type ctrl_t_416 is record
        state : ctrl_engine_state_t_409;
        norm_r : std_ulogic;
        cnt : std_ulogic_vector(8 downto 0);
        cnt_pre : std_ulogic_vector(8 downto 0);
        cnt_of : std_ulogic;
        cnt_uf : std_ulogic;
        rounded : std_ulogic;
        res_sgn : std_ulogic;
        res_exp : std_ulogic_vector(7 downto 0);
        res_man : std_ulogic_vector(22 downto 0);
        class : std_ulogic_vector(9 downto 0);
        flags : std_ulogic_vector(4 downto 0);
    end record;
    type state_t_523 is (
        s_idle, s_check, s_bypass, s_sync_start, s_sync_delay, s_sync_check, s_sync_next,
        s_read_start, s_read_wait, s_read_burst, s_read_done, s_write_start, s_write_req,
        s_write_rsp, s_write_wait, s_write_burst, s_write_done);
    type ctrl_t_529 is record
        state : state_t_523;
        sync : std_ulogic;
        bus_err : std_ulogic;
        pnd_req : std_ulogic;
        pnd_syn : std_ulogic;
        pnd_bp : std_ulogic;
        bp_req : std_ulogic;
        hit : std_ulogic;
        cln : std_ulogic;
        tag : std_ulogic_vector(20 downto 0);
        idx : std_ulogic_vector(5 downto 0);
        ofs_int : std_ulogic_vector(2 downto 0);
        ofs_ext : std_ulogic_vector(3 downto 0);
        ofs_buf : std_ulogic_vector(3 downto 0);
    end record;
    type ctrl_t_578 is record
        state : state_t_523;
        sync : std_ulogic;
        bus_err : std_ulogic;
        pnd_req : std_ulogic;
        pnd_syn : std_ulogic;
        pnd_bp : std_ulogic;
        bp_req : std_ulogic;
        hit : std_ulogic;
        cln : std_ulogic;
        tag : std_ulogic_vector(21 downto 0);
        idx : std_ulogic_vector(4 downto 0);
        ofs_int : std_ulogic_vector(2 downto 0);
        ofs_ext : std_ulogic_vector(3 downto 0);
        ofs_buf : std_ulogic_vector(3 downto 0);
    end record;
    type ctrl_t_673 is record
        state : state_t_523;
        sync : std_ulogic;
        bus_err : std_ulogic;
        pnd_req : std_ulogic;
        pnd_syn : std_ulogic;
        pnd_bp : std_ulogic;
        bp_req : std_ulogic;
        hit : std_ulogic;
        cln : std_ulogic;
        tag : std_ulogic_vector(20 downto 0);
        idx : std_ulogic_vector(5 downto 0);
        ofs_int : std_ulogic_vector(2 downto 0);
        ofs_ext : std_ulogic_vector(3 downto 0);
        ofs_buf : std_ulogic_vector(3 downto 0);
    end record;
    type ctrl_t_716 is record
        state : state_t_523;
        sync : std_ulogic;
        bus_err : std_ulogic;
        pnd_req : std_ulogic;
        pnd_syn : std_ulogic;
        pnd_bp : std_ulogic;
        bp_req : std_ulogic;
        hit : std_ulogic;
        cln : std_ulogic;
        tag : std_ulogic_vector(21 downto 0);
        idx : std_ulogic_vector(4 downto 0);
        ofs_int : std_ulogic_vector(2 downto 0);
        ofs_ext : std_ulogic_vector(3 downto 0);
        ofs_buf : std_ulogic_vector(3 downto 0);
    end record;
    type ctrl_t_761 is record
        enable : std_ulogic;
        start : std_ulogic;
        err : std_ulogic;
        done : std_ulogic;
    end record;
    type ctrl_t_922 is record
        enable : std_ulogic;
        clr_rx : std_ulogic;
        clr_tx : std_ulogic;
        irq_rx_nempty : std_ulogic;
        irq_rx_full : std_ulogic;
        irq_tx_empty : std_ulogic;
    end record;
    type ctrl_t_954 is record
        enable : std_ulogic;
        lock : std_ulogic;
        timeout : std_ulogic_vector(23 downto 0);
    end record;
    type ctrl_t_983 is record
        enable : std_ulogic;
        sim_mode : std_ulogic;
        hwfc_en : std_ulogic;
        prsc : std_ulogic_vector(2 downto 0);
        baud : std_ulogic_vector(9 downto 0);
        irq_rx_nempty : std_ulogic;
        irq_rx_full : std_ulogic;
        irq_tx_empty : std_ulogic;
        irq_tx_nfull : std_ulogic;
    end record;
    type ctrl_t_1024 is record
        enable : std_ulogic;
        cpha : std_ulogic;
        cpol : std_ulogic;
        prsc : std_ulogic_vector(2 downto 0);
        cdiv : std_ulogic_vector(3 downto 0);
    end record;
    type ctrl_t_1052 is record
        enable : std_ulogic;
        prsc : std_ulogic_vector(2 downto 0);
        cdiv : std_ulogic_vector(3 downto 0);
        clkstr : std_ulogic;
    end record;
    type ctrl_t_1081 is record
        enable : std_ulogic;
        fsel : std_ulogic;
        device_addr : std_ulogic_vector(6 downto 0);
        irq_rx_avail : std_ulogic;
        irq_rx_full : std_ulogic;
        irq_tx_empty : std_ulogic;
        irq_tx_nfull : std_ulogic;
        irq_com_beg : std_ulogic;
        irq_com_end : std_ulogic;
    end record;
    type ctrl_t_1157 is record
        enable : std_ulogic;
        clk_prsc : std_ulogic_vector(2 downto 0);
        t_total : std_ulogic_vector(4 downto 0);
        t0_high : std_ulogic_vector(4 downto 0);
        t1_high : std_ulogic_vector(4 downto 0);
    end record;
    type ctrl_t_1190 is record
        enable : std_ulogic;
        clear : std_ulogic;
        clk_prsc : std_ulogic_vector(1 downto 0);
        clk_div : std_ulogic_vector(7 downto 0);
    end record;
    type ctrl_t_1220 is record
        enable : std_ulogic;
        irq_rx_nempty : std_ulogic;
        irq_rx_full : std_ulogic;
        irq_tx_empty : std_ulogic;
        irq_tx_nfull : std_ulogic;
    end record;
end package types;
