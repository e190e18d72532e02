// Sensor hub: samples come in on their own clock, are filtered, buffered and sent over a serial
// line; a bus, a general purpose port and a two-wire data line are driven on request.
module sample (
    input  wire       clk_sys,      // 48 MHz
    input  wire       clk_sense,    // 20 MHz, unrelated to clk_sys
    input  wire       rst_n,
    input  wire       uart_rx,
    input  wire [1:0] mode,
    input  wire       sense_valid,
    input  wire [7:0] sense_data,
    output wire       uart_tx,
    output wire [8:1] leds,
    output wire       link,         // differential pad
    output wire       heartbeat,    // high drive pad
    output wire       clk_fwd,      // straight from the clock output cell, no buffer
    output wire [0:3] bus_drive,    // tri-state
    inout  wire [7:0] gpio,
    inout  wire       sda
);
    wire [7:0] command;
    wire       command_valid;
    wire [7:0] average;
    wire       average_valid;
    wire [7:0] reply;
    wire       reply_ready;
    reg        reply_valid;
    reg  [9:0] address;
    reg  [7:0] control;
    reg  [7:0] blink;
    reg  [7:0] pins;
    wire       step = command_valid | (mode[0] & reply_ready);

    sense u_sense (
        .clk(clk_sense), .rst_n(rst_n), .enable(mode[1]),
        .valid(sense_valid), .data(sense_data),
        .average(average), .average_valid(average_valid)
    );

    store u_store (
        .clk_sys(clk_sys), .clk_sense(clk_sense), .rst_n(rst_n),
        .sense_write(average_valid), .sense_data(average),
        .enable(step), .write(control[7]), .address(address), .data(command), .result(reply)
    );

    uart u_uart (
        .clk(clk_sys), .rst_n(rst_n),
        .rx(uart_rx), .rx_data(command), .rx_valid(command_valid),
        .tx(uart_tx), .tx_data(reply), .tx_valid(reply_valid), .tx_ready(reply_ready)
    );

    always @(posedge clk_sys or negedge rst_n)
        if (!rst_n) begin
            address     <= 10'd0;
            reply_valid <= 1'b0;
        end else begin
            reply_valid <= step;
            if (step)
                address <= address + 10'd1;
        end

    always @(posedge clk_sys)
        if (command_valid)
            control <= command;

    always @(posedge clk_sys or negedge rst_n)
        if (!rst_n)
            blink <= 8'd0;
        else
            blink <= blink + 8'd1;

    always @(posedge clk_sys)
        pins <= gpio;

    assign leds      = control ^ pins;
    assign bus_drive = control[6] ? address[3:0] : 4'bz;
    assign sda       = control[5] ? 1'b0 : 1'bz;

    genvar i;
    generate
        for (i = 0; i < 8; i = i + 1) begin : pin
            assign gpio[i] = control[i] ? reply[i] : 1'bz;
        end
    endgenerate

    FERN_OBUF_DIFF  u_link_pad      (.I(reply_valid ^ sda), .O(link));
    FERN_OBUF_DRIVE u_heartbeat_pad (.I(blink[7]), .O(heartbeat));
    FERN_CLKOUT     u_clk_fwd       (.CLK(clk_sys), .CE(mode[0]), .Q(clk_fwd));
endmodule
