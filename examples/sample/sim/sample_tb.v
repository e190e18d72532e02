// Sends commands over the serial line while the sensor delivers a triangle, and records the
// activity of the whole hub.
`timescale 1ns / 1ps

module sample_tb;
    reg        clk_sys = 1'b0;
    reg        clk_sense = 1'b0;
    reg        rst_n = 1'b0;
    reg        line = 1'b1;
    reg  [1:0] mode = 2'b11;
    reg        sense_valid = 1'b0;
    reg  [7:0] sense_data = 8'd0;
    reg        rising = 1'b1;
    wire       uart_tx, link, heartbeat, clk_fwd, sda;
    wire [8:1] leds;
    wire [0:3] bus_drive;
    wire [7:0] gpio;

    sample dut (
        .clk_sys(clk_sys), .clk_sense(clk_sense), .rst_n(rst_n), .uart_rx(line), .mode(mode),
        .sense_valid(sense_valid), .sense_data(sense_data), .uart_tx(uart_tx), .leds(leds),
        .link(link), .heartbeat(heartbeat), .clk_fwd(clk_fwd), .bus_drive(bus_drive),
        .gpio(gpio), .sda(sda)
    );

    pullup pull_sda (sda);
    genvar i;
    generate
        for (i = 0; i < 8; i = i + 1) begin : pull
            pullup pull_gpio (gpio[i]);
        end
    endgenerate

    always #10 clk_sys = ~clk_sys;
    always #25 clk_sense = ~clk_sense;

    always @(negedge clk_sense) begin
        sense_valid <= ~sense_valid;
        if (sense_data == 8'hf8)
            rising <= 1'b0;
        else if (sense_data == 8'h08)
            rising <= 1'b1;
        if (sense_valid)
            sense_data <= rising ? sense_data + 8'd8 : sense_data - 8'd8;
    end

    task send(input [7:0] value);
        integer bit_number;
        begin
            line = 1'b0;
            #320;
            for (bit_number = 0; bit_number < 8; bit_number = bit_number + 1) begin
                line = value[bit_number];
                #320;
            end
            line = 1'b1;
            #640;
        end
    endtask

    initial begin
        $dumpfile("activity.vcd");
        $dumpvars(0, sample_tb.dut);
        #105 rst_n = 1'b1;
        #100;
        send(8'h81);
        send(8'hd3);
        send(8'h2c);
        mode = 2'b10;
        send(8'h55);
        $finish;
    end
endmodule
