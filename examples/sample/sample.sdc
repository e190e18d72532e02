# Clocks of the sample.
create_clock -name clk_sys -period 20.833 [get_ports {clk_sys}]
create_clock -name clk_sense -period 50.000 [get_ports {clk_sense}]
set_clock_groups -asynchronous -group {clk_sys} -group {clk_sense}
set_input_delay -clock clk_sense 5.0 [get_ports {sense_valid sense_data[*]}]
