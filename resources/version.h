// Version of the program, as numbers and as text. The resource compiler reads this file, so it
// holds nothing but macros.
#define GATEWAY_VERSION_NUMBERS 3, 0, 0, 0
#define GATEWAY_VERSION_TEXT "3.0.0.0"
