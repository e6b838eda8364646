// A few values of packed types over time, for a waveform viewer.
module waves;
    import job_pkg::*;
    state_e state;
    wide_e wide;
    inner_t inner;
    inner_row_t row;

    initial begin
        $dumpfile("waves.vcd");
        $dumpvars;
        state = IDLE; wide = SMALL; inner = '{IDLE, 4'd0, OFF}; row = '0;
        #10 state = RUN; inner = '{RUN, 4'd9, ON}; row[1] = inner;
        #10 state = STOP; wide = BIG; inner = '{STOP, 4'd10, OFF}; row[0] = inner;
        #10 state = RUN; inner.count = 4'd11; inner.st = RUN;
        #10 state = IDLE; inner.st = IDLE; row[2].sw = ON;
        #10 $finish;
    end
endmodule
