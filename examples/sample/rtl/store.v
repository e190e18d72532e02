// Memories of the hub, one of each kind that the family has. The sensor's side writes on its own
// clock; the system side reads, and writes the memories that it shares.
module store (
    input  wire       clk_sys,
    input  wire       clk_sense,
    input  wire       rst_n,
    input  wire       sense_write,
    input  wire [7:0] sense_data,
    input  wire       enable,
    input  wire       write,
    input  wire [9:0] address,
    input  wire [7:0] data,
    output wire [7:0] result
);
    reg  [9:0] head;
    wire [7:0] tone, scratch, capture, history, boot, frame, font;
    wire [8:0] shared_a, shared_b;
    wire [7:0] exchange_a, exchange_b;

    always @(posedge clk_sense or negedge rst_n)
        if (!rst_n)
            head <= 10'd0;
        else if (sense_write)
            head <= head + 10'd1;

    FERN_ROM #(.WIDTH(8)) u_tone (
        .CLKA(clk_sys), .CEA(enable), .ADDRA(address), .QA(tone)
    );
    FERN_SPRAM #(.WIDTH(8)) u_scratch (
        .CLKA(clk_sys), .CEA(enable), .WEA(write), .ADDRA(address), .DA(data), .QA(scratch)
    );
    FERN_SDPRAM #(.WIDTH(8)) u_capture (
        .CLKA(clk_sense), .CEA(sense_write), .ADDRA(head), .DA(sense_data),
        .CLKB(clk_sys), .CEB(enable), .ADDRB(address), .QB(capture)
    );
    FERN_DPRAM #(.WIDTH(9)) u_shared (
        .CLKA(clk_sys), .CEA(enable), .WEA(write), .ADDRA(address), .DA({^data, data}),
        .QA(shared_a),
        .CLKB(clk_sense), .CEB(1'b1), .WEB(sense_write), .ADDRB(head), .DB({1'b0, sense_data}),
        .QB(shared_b)
    );
    FERN_SDPRAM_ECC #(.WIDTH(8)) u_history (
        .CLKA(clk_sense), .CEA(sense_write), .ADDRA(head), .DA(sense_data),
        .CLKB(clk_sys), .CEB(enable), .ADDRB(address), .QB(history)
    );
    FERN_ROM_ECC #(.WIDTH(8)) u_boot (
        .CLKA(clk_sys), .CEA(enable), .ADDRA(address), .QA(boot)
    );
    FERN_SDPRAM_XL #(.WIDTH(8)) u_frame (
        .CLKA(clk_sense), .CEA(sense_write), .ADDRA(head), .DA(sense_data),
        .CLKB(clk_sys), .CEB(enable), .ADDRB(address), .QB(frame)
    );
    FERN_DPRAM_XL #(.WIDTH(8)) u_exchange (
        .CLKA(clk_sys), .CEA(enable), .WEA(write), .ADDRA(address), .DA(data),
        .QA(exchange_a),
        .CLKB(clk_sense), .CEB(1'b1), .WEB(sense_write), .ADDRB(head), .DB(sense_data),
        .QB(exchange_b)
    );
    FERN_ROM_XL #(.WIDTH(8)) u_font (
        .CLKA(clk_sys), .CEA(enable), .ADDRA(address), .QA(font)
    );

    selector u_selector (
        .clk(clk_sys), .enable(enable), .select(address[3:0]),
        .read_only(tone ^ boot ^ font), .scratch(scratch), .buffered(capture ^ history ^ frame),
        .shared({^shared_a, shared_b[6:0]}), .exchange(exchange_a ^ exchange_b), .result(result)
    );
endmodule

module selector (
    input  wire       clk,
    input  wire       enable,
    input  wire [3:0] select,
    input  wire [7:0] read_only,
    input  wire [7:0] scratch,
    input  wire [7:0] buffered,
    input  wire [7:0] shared,
    input  wire [7:0] exchange,
    output reg  [7:0] result
);
    always @(posedge clk)
        if (enable)
            case (select[2:0])
            3'd0:    result <= read_only;
            3'd1:    result <= scratch;
            3'd2:    result <= buffered;
            3'd3:    result <= shared;
            3'd4:    result <= exchange;
            default: result <= {select, select} ^ buffered;
            endcase
endmodule
