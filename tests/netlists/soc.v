// A small system to synthesise for families that the reader was not shaped on: processor, memory,
// first-in-first-out buffer between two clocks, filter, serial line, pulse width modulators.
module soc #(
    parameter BITS = 10
) (
    input  wire        clk,
    input  wire        clk_adc,
    input  wire        rst,
    input  wire        rx,
    output wire        tx,
    input  wire [11:0] adc,
    input  wire        adc_valid,
    output wire [0:3]  pwm,
    output wire [23:8] result,
    inout  wire [7:0]  pins
);
    wire [15:0] address, from_cpu;
    wire [15:0] from_memory;
    wire        write;
    wire [23:0] filtered;
    wire [23:0] sample;
    wire        sample_ready;
    wire [7:0]  received;
    wire        received_valid;
    reg  [15:0] to_cpu;
    reg  [7:0]  direction, level;

    wire at_memory = address[15:12] == 4'h0;
    wire at_pwm    = address[15:12] == 4'h1;
    wire at_pins   = address[15:12] == 4'h2;
    wire at_serial = address[15:12] == 4'h3;
    wire at_sample = address[15:12] == 4'h4;

    cpu core (.clk(clk), .rst(rst), .address(address), .data_in(to_cpu), .data_out(from_cpu),
              .write(write));
    memory #(.BITS(BITS)) ram (.clk(clk), .write(write & at_memory), .address(address[BITS-1:0]),
                             .data_in(from_cpu), .data_out(from_memory));
    filter fir (.clk(clk_adc), .rst(rst), .valid(adc_valid), .in(adc), .out(filtered));
    crossing #(.WIDTH(24), .BITS(4)) queue (
        .rst(rst), .write_clk(clk_adc), .write(adc_valid), .in(filtered),
        .read_clk(clk), .read(at_sample), .out(sample), .ready(sample_ready));
    serial line (.clk(clk), .rst(rst), .rx(rx), .tx(tx), .send(write & at_serial),
                 .in(from_cpu[7:0]), .out(received), .valid(received_valid));

    genvar i;
    generate
        for (i = 0; i < 4; i = i + 1) begin : channel
            modulator m (.clk(clk), .rst(rst), .load(write & at_pwm & address[1:0] == i),
                         .duty(from_cpu[7:0]), .out(pwm[i]));
        end
        for (i = 0; i < 8; i = i + 1) begin : pin
            assign pins[i] = direction[i] ? level[i] : 1'bz;
        end
    endgenerate

    always @(posedge clk)
        if (write & at_pins)
            {direction, level} <= from_cpu;

    always @*
        case (address[15:12])
        4'h0:    to_cpu = from_memory;
        4'h2:    to_cpu = {8'h00, pins};
        4'h3:    to_cpu = {7'h00, received_valid, received};
        4'h4:    to_cpu = sample[23:8];
        4'h5:    to_cpu = {15'h0000, sample_ready};
        default: to_cpu = 16'h0000;
        endcase

    assign result = sample[23:8] ^ from_memory;
endmodule

// One word an instruction: operation in the top four bits, register in the next four, the rest
// immediate or second register. Two cycles each.
module cpu (
    input  wire        clk,
    input  wire        rst,
    output wire [15:0] address,
    input  wire [15:0] data_in,
    output wire [15:0] data_out,
    output wire        write
);
    reg [15:0] pc, instruction;
    reg        execute, zero, carry;
    reg [15:0] registers [0:15];

    wire [3:0]  operation = instruction[15:12];
    wire [15:0] left      = registers[instruction[11:8]];
    wire [15:0] right     = registers[instruction[7:4]];
    reg  [16:0] value;


    wire [16:0] sum;
    alu unit (.operation(operation), .left(left), .right(right), .carry_in(carry), .out(sum));

    assign address  = execute ? right : pc;
    assign data_out = left;
    assign write    = execute & operation == 4'hd;

    always @*
        case (operation)
        4'hc:    value = {carry, data_in};
        4'he:    value = {carry, 8'h00, instruction[7:0]};
        default: value = sum;
        endcase

    always @(posedge clk)
        if (rst) begin
            pc          <= 16'h0000;
            execute     <= 1'b0;
            instruction <= 16'h0000;
            zero        <= 1'b0;
            carry       <= 1'b0;
        end else if (!execute) begin
            instruction <= data_in;
            execute     <= 1'b1;
            pc          <= pc + 16'd1;
        end else begin
            execute <= 1'b0;
            if (operation == 4'hf) begin
                if (instruction[11] ? zero : carry)
                    pc <= pc + {{5{instruction[10]}}, instruction[10:0]};
            end else if (operation != 4'hd) begin
                registers[instruction[11:8]] <= value[15:0];
                {carry, zero} <= {value[16], value[15:0] == 16'h0000};
            end
        end
endmodule

module alu (
    input  wire [3:0]  operation,
    input  wire [15:0] left,
    input  wire [15:0] right,
    input  wire        carry_in,
    output reg  [16:0] out
);
    always @*
        case (operation)
        4'h0:    out = left + right;
        4'h1:    out = left + right + carry_in;
        4'h2:    out = left - right;
        4'h3:    out = {1'b0, left & right};
        4'h4:    out = {1'b0, left | right};
        4'h5:    out = {1'b0, left ^ right};
        4'h6:    out = {left, 1'b0};
        4'h7:    out = {left[0], 1'b0, left[15:1]};
        4'h8:    out = {1'b0, left << right[3:0]};
        4'h9:    out = {1'b0, $signed(left) >>> right[3:0]};
        4'ha:    out = left * right;
        default: out = {carry_in, right};
        endcase
endmodule

module memory #(
    parameter BITS = 8
) (
    input  wire            clk,
    input  wire            write,
    input  wire [BITS-1:0] address,
    input  wire [15:0]     data_in,
    output reg  [15:0]     data_out
);
    reg [15:0] words [0:(1 << BITS)-1];

    always @(posedge clk) begin
        if (write)
            words[address] <= data_in;
        data_out <= words[address];
    end
endmodule

// Eight taps, symmetric.
module filter (
    input  wire               clk,
    input  wire               rst,
    input  wire               valid,
    input  wire signed [11:0] in,
    output reg  signed [23:0] out
);
    reg signed [11:0] taps [0:7];
    integer k;

    always @(posedge clk)
        if (rst) begin
            for (k = 0; k < 8; k = k + 1)
                taps[k] <= 12'sd0;
            out <= 24'sd0;
        end else if (valid) begin
            taps[0] <= in;
            for (k = 1; k < 8; k = k + 1)
                taps[k] <= taps[k - 1];
            out <= (taps[0] + taps[7]) * 13'sd37 + (taps[1] + taps[6]) * 13'sd211
                 + (taps[2] + taps[5]) * 13'sd502 + (taps[3] + taps[4]) * 13'sd791;
        end
endmodule

// Buffer between two clocks with Gray coded pointers.
module crossing #(
    parameter WIDTH = 8,
    parameter BITS = 4
) (
    input  wire             rst,
    input  wire             write_clk,
    input  wire             write,
    input  wire [WIDTH-1:0] in,
    input  wire             read_clk,
    input  wire             read,
    output reg  [WIDTH-1:0] out,
    output wire             ready
);
    reg [WIDTH-1:0] words [0:(1 << BITS)-1];
    reg [BITS:0] head, tail, head_gray, tail_gray;
    reg [BITS:0] head_seen [0:1];
    reg [BITS:0] tail_seen [0:1];
    wire [BITS:0] head_next = head + 1'b1;
    wire [BITS:0] tail_next = tail + 1'b1;
    wire full = head_gray == {~tail_seen[1][BITS:BITS-1], tail_seen[1][BITS-2:0]};

    assign ready = head_seen[1] != tail_gray;

    always @(posedge write_clk)
        if (write & !full)
            words[head[BITS-1:0]] <= in;

    always @(posedge write_clk or posedge rst)
        if (rst) begin
            head      <= 0;
            head_gray <= 0;
        end else if (write & !full) begin
            head      <= head_next;
            head_gray <= head_next ^ (head_next >> 1);
        end

    always @(posedge read_clk)
        if (read & ready)
            out <= words[tail[BITS-1:0]];

    always @(posedge read_clk or posedge rst)
        if (rst) begin
            tail      <= 0;
            tail_gray <= 0;
        end else if (read & ready) begin
            tail      <= tail_next;
            tail_gray <= tail_next ^ (tail_next >> 1);
        end

    always @(posedge write_clk) begin
        tail_seen[0] <= tail_gray;
        tail_seen[1] <= tail_seen[0];
    end

    always @(posedge read_clk) begin
        head_seen[0] <= head_gray;
        head_seen[1] <= head_seen[0];
    end
endmodule

module serial (
    input  wire       clk,
    input  wire       rst,
    input  wire       rx,
    output wire       tx,
    input  wire       send,
    input  wire [7:0] in,
    output reg  [7:0] out,
    output reg        valid
);
    reg [9:0] shift;
    reg [8:0] phase, sample_phase;
    reg [3:0] left, sample_left;
    reg       settled;

    assign tx = ~shift[0];

    always @(posedge clk)
        if (rst) begin
            shift <= 10'd0;
            phase <= 9'd0;
            left  <= 4'd0;
        end else if (left == 0) begin
            if (send) begin
                shift <= ~{1'b1, in, 1'b0};
                left  <= 4'd10;
            end
        end else if (phase == 9'd433) begin
            phase <= 9'd0;
            left  <= left - 4'd1;
            shift <= shift >> 1;
        end else
            phase <= phase + 9'd1;

    always @(posedge clk) begin
        settled <= rx;
        valid   <= 1'b0;
        if (rst) begin
            sample_left  <= 4'd0;
            sample_phase <= 9'd0;
        end else if (sample_left == 0) begin
            sample_phase <= 9'd217;
            if (!settled)
                sample_left <= 4'd10;
        end else if (sample_phase == 9'd433) begin
            sample_phase <= 9'd0;
            sample_left  <= sample_left - 4'd1;
            out          <= {settled, out[7:1]};
            valid        <= sample_left == 4'd2;
        end else
            sample_phase <= sample_phase + 9'd1;
    end
endmodule

module modulator (
    input  wire       clk,
    input  wire       rst,
    input  wire       load,
    input  wire [7:0] duty,
    output reg        out
);
    reg [7:0] count, limit;

    always @(posedge clk)
        if (rst) begin
            count <= 8'd0;
            limit <= 8'd0;
            out   <= 1'b0;
        end else begin
            count <= count + 8'd1;
            if (load)
                limit <= duty;
            out <= count < limit;
        end
endmodule
