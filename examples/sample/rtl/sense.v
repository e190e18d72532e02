// Front end of the sensor, all in the sensor's clock domain: one average for every four samples.
module sense (
    input  wire       clk,
    input  wire       rst_n,
    input  wire       enable,
    input  wire       valid,
    input  wire [7:0] data,
    output wire [7:0] average,
    output wire       average_valid
);
    reg [7:0] sample;
    reg       sample_valid;

    always @(posedge clk or negedge rst_n)
        if (!rst_n)
            sample_valid <= 1'b0;
        else
            sample_valid <= enable & valid;

    always @(posedge clk)
        if (enable & valid)
            sample <= data;

    averager u_averager (
        .clk(clk), .rst_n(rst_n), .valid(sample_valid), .data(sample),
        .average(average), .average_valid(average_valid)
    );
endmodule

module averager (
    input  wire       clk,
    input  wire       rst_n,
    input  wire       valid,
    input  wire [7:0] data,
    output reg  [7:0] average,
    output reg        average_valid
);
    reg [9:0] sum;
    reg [1:0] count;
    wire [9:0] next = sum + data;

    always @(posedge clk or negedge rst_n)
        if (!rst_n) begin
            sum           <= 10'd0;
            count         <= 2'd0;
            average       <= 8'd0;
            average_valid <= 1'b0;
        end else begin
            average_valid <= valid && count == 2'd3;
            if (valid) begin
                count <= count + 2'd1;
                sum   <= count == 2'd3 ? 10'd0 : next;
                if (count == 2'd3)
                    average <= next[9:2];
            end
        end
endmodule
