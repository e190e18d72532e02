// Cells of the invented family "Fern": black boxes for synthesis, models for simulation.

module FERN_IBUF (input wire I, output wire O);
    assign O = I;
endmodule

module FERN_OBUF (input wire I, output wire O);
    assign O = I;
endmodule

// One pad of a differential pair; its partner is placed by the tools.
module FERN_OBUF_DIFF (input wire I, output wire O);
    assign O = I;
endmodule

module FERN_OBUF_DRIVE (input wire I, output wire O);
    assign O = I;
endmodule

module FERN_TBUF (input wire I, input wire OE, output wire O);
    assign O = OE ? I : 1'bz;
endmodule

module FERN_IOBUF (input wire I, input wire OE, output wire O, inout wire IO);
    assign IO = OE ? I : 1'bz;
    assign O = IO;
endmodule

// Forwards a clock to a pad, without a buffer of its own.
module FERN_CLKOUT (input wire CLK, input wire CE, output wire Q);
    assign Q = CLK & CE;
endmodule

module FERN_LUT4 #(
    parameter [15:0] INIT = 16'h0000
) (input wire A, input wire B, input wire C, input wire D, output wire F);
    assign F = INIT[{D, C, B, A}];
endmodule

module FERN_DFF (input wire CLK, input wire D, output reg Q);
    always @(posedge CLK)
        Q <= D;
endmodule

module FERN_DFFE (input wire CLK, input wire CE, input wire D, output reg Q);
    always @(posedge CLK)
        if (CE)
            Q <= D;
endmodule

module FERN_DFFR (input wire CLK, input wire CLR, input wire D, output reg Q);
    always @(posedge CLK or posedge CLR)
        if (CLR)
            Q <= 1'b0;
        else
            Q <= D;
endmodule

module FERN_DFFER (input wire CLK, input wire CE, input wire CLR, input wire D, output reg Q);
    always @(posedge CLK or posedge CLR)
        if (CLR)
            Q <= 1'b0;
        else if (CE)
            Q <= D;
endmodule

module FERN_DFFS (input wire CLK, input wire PRE, input wire D, output reg Q);
    always @(posedge CLK or posedge PRE)
        if (PRE)
            Q <= 1'b1;
        else
            Q <= D;
endmodule

module FERN_DFFES (input wire CLK, input wire CE, input wire PRE, input wire D, output reg Q);
    always @(posedge CLK or posedge PRE)
        if (PRE)
            Q <= 1'b1;
        else if (CE)
            Q <= D;
endmodule

// Read only. The model fills it with a ramp.
module FERN_ROM #(
    parameter WIDTH = 8
) (
    input wire CLKA, input wire CEA, input wire [9:0] ADDRA, output reg [WIDTH-1:0] QA
);
`ifndef SYNTHESIS
    reg [WIDTH-1:0] content [0:1023];
    integer i;
    initial
        for (i = 0; i < 1024; i = i + 1)
            content[i] = i * 37;
    always @(posedge CLKA)
        if (CEA)
            QA <= content[ADDRA];
`endif
endmodule

// One port that reads and writes.
module FERN_SPRAM #(
    parameter WIDTH = 8
) (
    input wire CLKA, input wire CEA, input wire WEA, input wire [9:0] ADDRA,
    input wire [WIDTH-1:0] DA, output reg [WIDTH-1:0] QA
);
`ifndef SYNTHESIS
    reg [WIDTH-1:0] content [0:1023];
    integer i;
    initial
        for (i = 0; i < 1024; i = i + 1)
            content[i] = 0;
    always @(posedge CLKA)
        if (CEA) begin
            if (WEA)
                content[ADDRA] <= DA;
            QA <= content[ADDRA];
        end
`endif
endmodule

// Port A writes, port B reads.
module FERN_SDPRAM #(
    parameter WIDTH = 8
) (
    input wire CLKA, input wire CEA, input wire [9:0] ADDRA, input wire [WIDTH-1:0] DA,
    input wire CLKB, input wire CEB, input wire [9:0] ADDRB, output reg [WIDTH-1:0] QB
);
`ifndef SYNTHESIS
    reg [WIDTH-1:0] content [0:1023];
    integer i;
    initial
        for (i = 0; i < 1024; i = i + 1)
            content[i] = 0;
    always @(posedge CLKA)
        if (CEA)
            content[ADDRA] <= DA;
    always @(posedge CLKB)
        if (CEB)
            QB <= content[ADDRB];
`endif
endmodule

// Both ports read and write.
module FERN_DPRAM #(
    parameter WIDTH = 8
) (
    input wire CLKA, input wire CEA, input wire WEA, input wire [9:0] ADDRA,
    input wire [WIDTH-1:0] DA, output reg [WIDTH-1:0] QA,
    input wire CLKB, input wire CEB, input wire WEB, input wire [9:0] ADDRB,
    input wire [WIDTH-1:0] DB, output reg [WIDTH-1:0] QB
);
`ifndef SYNTHESIS
    reg [WIDTH-1:0] content [0:1023];
    integer i;
    initial
        for (i = 0; i < 1024; i = i + 1)
            content[i] = 0;
    always @(posedge CLKA)
        if (CEA) begin
            if (WEA)
                content[ADDRA] <= DA;
            QA <= content[ADDRA];
        end
    always @(posedge CLKB)
        if (CEB) begin
            if (WEB)
                content[ADDRB] <= DB;
            QB <= content[ADDRB];
        end
`endif
endmodule

// Port A writes, port B reads, with error correction.
module FERN_SDPRAM_ECC #(
    parameter WIDTH = 8
) (
    input wire CLKA, input wire CEA, input wire [9:0] ADDRA, input wire [WIDTH-1:0] DA,
    input wire CLKB, input wire CEB, input wire [9:0] ADDRB, output reg [WIDTH-1:0] QB
);
`ifndef SYNTHESIS
    reg [WIDTH-1:0] content [0:1023];
    integer i;
    initial
        for (i = 0; i < 1024; i = i + 1)
            content[i] = 0;
    always @(posedge CLKA)
        if (CEA)
            content[ADDRA] <= DA;
    always @(posedge CLKB)
        if (CEB)
            QB <= content[ADDRB];
`endif
endmodule

// Read only, with error correction.
module FERN_ROM_ECC #(
    parameter WIDTH = 8
) (
    input wire CLKA, input wire CEA, input wire [9:0] ADDRA, output reg [WIDTH-1:0] QA
);
`ifndef SYNTHESIS
    reg [WIDTH-1:0] content [0:1023];
    integer i;
    initial
        for (i = 0; i < 1024; i = i + 1)
            content[i] = i * 37;
    always @(posedge CLKA)
        if (CEA)
            QA <= content[ADDRA];
`endif
endmodule

// Port A writes, port B reads; a large block.
module FERN_SDPRAM_XL #(
    parameter WIDTH = 8
) (
    input wire CLKA, input wire CEA, input wire [9:0] ADDRA, input wire [WIDTH-1:0] DA,
    input wire CLKB, input wire CEB, input wire [9:0] ADDRB, output reg [WIDTH-1:0] QB
);
`ifndef SYNTHESIS
    reg [WIDTH-1:0] content [0:1023];
    integer i;
    initial
        for (i = 0; i < 1024; i = i + 1)
            content[i] = 0;
    always @(posedge CLKA)
        if (CEA)
            content[ADDRA] <= DA;
    always @(posedge CLKB)
        if (CEB)
            QB <= content[ADDRB];
`endif
endmodule

// Both ports read and write; a large block.
module FERN_DPRAM_XL #(
    parameter WIDTH = 8
) (
    input wire CLKA, input wire CEA, input wire WEA, input wire [9:0] ADDRA,
    input wire [WIDTH-1:0] DA, output reg [WIDTH-1:0] QA,
    input wire CLKB, input wire CEB, input wire WEB, input wire [9:0] ADDRB,
    input wire [WIDTH-1:0] DB, output reg [WIDTH-1:0] QB
);
`ifndef SYNTHESIS
    reg [WIDTH-1:0] content [0:1023];
    integer i;
    initial
        for (i = 0; i < 1024; i = i + 1)
            content[i] = 0;
    always @(posedge CLKA)
        if (CEA) begin
            if (WEA)
                content[ADDRA] <= DA;
            QA <= content[ADDRA];
        end
    always @(posedge CLKB)
        if (CEB) begin
            if (WEB)
                content[ADDRB] <= DB;
            QB <= content[ADDRB];
        end
`endif
endmodule

// Read only; a large block.
module FERN_ROM_XL #(
    parameter WIDTH = 8
) (
    input wire CLKA, input wire CEA, input wire [9:0] ADDRA, output reg [WIDTH-1:0] QA
);
`ifndef SYNTHESIS
    reg [WIDTH-1:0] content [0:1023];
    integer i;
    initial
        for (i = 0; i < 1024; i = i + 1)
            content[i] = i * 37;
    always @(posedge CLKA)
        if (CEA)
            QA <= content[ADDRA];
`endif
endmodule
