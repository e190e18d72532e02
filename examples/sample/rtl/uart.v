// Serial line, eight data bits, no parity, DIVIDER clocks a bit.
module uart #(
    parameter DIVIDER = 16
) (
    input  wire       clk,
    input  wire       rst_n,
    input  wire       rx,
    output wire [7:0] rx_data,
    output wire       rx_valid,
    output wire       tx,
    input  wire [7:0] tx_data,
    input  wire       tx_valid,
    output wire       tx_ready
);
    uart_rx #(.DIVIDER(DIVIDER)) u_rx (
        .clk(clk), .rst_n(rst_n), .line(rx), .data(rx_data), .valid(rx_valid)
    );
    uart_tx #(.DIVIDER(DIVIDER)) u_tx (
        .clk(clk), .rst_n(rst_n), .line(tx), .data(tx_data), .valid(tx_valid), .ready(tx_ready)
    );
endmodule

module uart_rx #(
    parameter DIVIDER = 16
) (
    input  wire       clk,
    input  wire       rst_n,
    input  wire       line,
    output reg  [7:0] data,
    output reg        valid
);
    reg [1:0] settle;
    reg [7:0] phase;
    reg [3:0] left;
    wire tick = phase == 8'd0;

    always @(posedge clk)
        settle <= {settle[0], line};

    always @(posedge clk or negedge rst_n)
        if (!rst_n) begin
            phase <= 8'd0;
            left  <= 4'd0;
            valid <= 1'b0;
        end else begin
            valid <= left == 4'd1 && tick;
            if (left == 4'd0) begin
                // The first sample falls in the middle of the first data bit.
                if (!settle[1]) begin
                    left  <= 4'd9;
                    phase <= DIVIDER + DIVIDER / 2 - 1;
                end
            end else if (tick) begin
                left  <= left - 4'd1;
                phase <= DIVIDER - 1;
            end else
                phase <= phase - 8'd1;
        end

    always @(posedge clk)
        if (tick && left > 4'd1)
            data <= {settle[1], data[7:1]};
endmodule

module uart_tx #(
    parameter DIVIDER = 16
) (
    input  wire       clk,
    input  wire       rst_n,
    output wire       line,
    input  wire [7:0] data,
    input  wire       valid,
    output wire       ready
);
    reg [9:0] shift;
    reg [7:0] phase;
    reg [3:0] left;

    assign ready = left == 4'd0;
    assign line  = shift[0];

    always @(posedge clk or negedge rst_n)
        if (!rst_n) begin
            shift <= 10'h3ff;
            phase <= 8'd0;
            left  <= 4'd0;
        end else if (ready) begin
            if (valid) begin
                shift <= {1'b1, data, 1'b0};
                left  <= 4'd10;
                phase <= DIVIDER - 1;
            end
        end else if (phase == 8'd0) begin
            shift <= {1'b1, shift[9:1]};
            left  <= left - 4'd1;
            phase <= DIVIDER - 1;
        end else
            phase <= phase - 8'd1;
endmodule
