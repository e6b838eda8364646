// Packed types within packed types, for what asks a simulator where their bits are.
package job_pkg;
    typedef enum logic [1:0] {IDLE, RUN = 2'd2, STOP = 2'd3} state_e;
    typedef enum logic [2:0] {LOW = 3'd1, HIGH = 3'd6, ODD = 3'b1x0} level_e;
    typedef enum bit [39:0] {SMALL = 40'd3, BIG = 40'hFF_0000_0001} wide_e;
    typedef enum int {MINUS = -1, SEVEN = 7} number_e;
    typedef enum bit {OFF, ON} switch_e;

    typedef struct packed {
        state_e st;
        logic [3:0] count;
        switch_e sw;
    } inner_t;
    typedef inner_t [0:2] inner_row_t;
    typedef union packed {
        logic [20:0] raw;
        inner_row_t rows;
        logic [2:0][6:0] parts;
    } view_t;
    typedef struct packed {
        wide_e wide;
        view_t [1:0][4:3] views;
        state_e [3:1] states;
        byte sign;
        logic valid;
    } job_t;
    typedef struct packed {
        number_e number;
        level_e level;
        job_t job;
    } report_t;
endpackage

module top;
    import job_pkg::*;
    state_e state;
    level_e level;
    wide_e wide;
    number_e number;
    switch_e switched;
    inner_t inner;
    inner_row_t row;
    view_t view;
    job_t job;
    report_t report;
    inner_t memory [0:3];
endmodule
