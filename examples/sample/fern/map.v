// Generic flip-flops and look-up tables to the cells of the family.
module \$_DFF_P_ (input C, D, output Q);
    FERN_DFF _TECHMAP_REPLACE_ (.CLK(C), .D(D), .Q(Q));
endmodule

module \$_DFFE_PP_ (input C, E, D, output Q);
    FERN_DFFE _TECHMAP_REPLACE_ (.CLK(C), .CE(E), .D(D), .Q(Q));
endmodule

module \$_DFF_PP0_ (input C, R, D, output Q);
    FERN_DFFR _TECHMAP_REPLACE_ (.CLK(C), .CLR(R), .D(D), .Q(Q));
endmodule

module \$_DFF_PP1_ (input C, R, D, output Q);
    FERN_DFFS _TECHMAP_REPLACE_ (.CLK(C), .PRE(R), .D(D), .Q(Q));
endmodule

module \$_DFFE_PP0P_ (input C, R, E, D, output Q);
    FERN_DFFER _TECHMAP_REPLACE_ (.CLK(C), .CE(E), .CLR(R), .D(D), .Q(Q));
endmodule

module \$_DFFE_PP1P_ (input C, R, E, D, output Q);
    FERN_DFFES _TECHMAP_REPLACE_ (.CLK(C), .CE(E), .PRE(R), .D(D), .Q(Q));
endmodule

// A table of fewer than four inputs repeats over the inputs that it does not have.
module \$lut (A, Y);
    parameter WIDTH = 0;
    parameter LUT = 0;
    input [WIDTH-1:0] A;
    output Y;
    wire [3:0] in = A;
    FERN_LUT4 #(.INIT({(16 >> WIDTH){LUT[(1 << WIDTH)-1:0]}})) _TECHMAP_REPLACE_ (
        .A(in[0]), .B(in[1]), .C(in[2]), .D(in[3]), .F(Y)
    );
endmodule
