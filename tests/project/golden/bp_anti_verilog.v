// Orvana FIR coefficients of the filter design "bpAnti"
// Band Pass, Kaiser window (beta 5), N = 43, 12-bit integers
// Units KHz: cutoff 2.4, centre 9.6, sampling frequency 48
// Scale 9503.783629979027: coefficient = integer / scale
// A combinational ROM: coef is the integer tap at addr, 0 past the last tap.

module bpAnti_rom #(
    parameter TAPS = 43
) (
    input wire [5:0] addr,
    output reg signed [11:0] coef
);

    always @(*) begin
        case (addr)
            6'd0: coef = 12'sd15;
            6'd1: coef = 12'sd0;
            6'd2: coef = -12'sd24;
            6'd3: coef = -12'sd10;
            6'd4: coef = -12'sd3;
            6'd5: coef = -12'sd42;
            6'd6: coef = 12'sd0;
            6'd7: coef = 12'sd149;
            6'd8: coef = 12'sd124;
            6'd9: coef = -12'sd145;
            6'd10: coef = -12'sd233;
            6'd11: coef = 12'sd0;
            6'd12: coef = 12'sd65;
            6'd13: coef = -12'sd73;
            6'd14: coef = 12'sd227;
            6'd15: coef = 12'sd669;
            6'd16: coef = 12'sd0;
            6'd17: coef = -12'sd1337;
            6'd18: coef = -12'sd1015;
            6'd19: coef = 12'sd1167;
            6'd20: coef = 12'sd2047;
            6'd21: coef = 12'sd0;
            6'd22: coef = -12'sd2047;
            6'd23: coef = -12'sd1167;
            6'd24: coef = 12'sd1015;
            6'd25: coef = 12'sd1337;
            6'd26: coef = 12'sd0;
            6'd27: coef = -12'sd669;
            6'd28: coef = -12'sd227;
            6'd29: coef = 12'sd73;
            6'd30: coef = -12'sd65;
            6'd31: coef = 12'sd0;
            6'd32: coef = 12'sd233;
            6'd33: coef = 12'sd145;
            6'd34: coef = -12'sd124;
            6'd35: coef = -12'sd149;
            6'd36: coef = 12'sd0;
            6'd37: coef = 12'sd42;
            6'd38: coef = 12'sd3;
            6'd39: coef = 12'sd10;
            6'd40: coef = 12'sd24;
            6'd41: coef = 12'sd0;
            6'd42: coef = -12'sd15;
            default: coef = 12'sd0;
        endcase
    end

endmodule
