#include <bit>

// The data files, which script/tables writes, as read-only data of the library. The assembler takes
// them in as they are; as numbers in a source they would be two megabytes to compile.

static_assert(std::endian::native == std::endian::little, "as the data files are");

#if defined(_WIN32)
#define READ_ONLY ".section .rdata,\"dr\"\n"
#define AS_OBJECT(symbol) ""
#elif defined(__wasm__)
#define READ_ONLY ".section .rodata.vek_tables,\"\",@\n"
#define AS_OBJECT(symbol) \
  ".hidden " symbol "\n.type " symbol ",@object\n.size " symbol ", . - " symbol "\n"
#else
#define READ_ONLY ".section .rodata,\"a\",%progbits\n"
#define AS_OBJECT(symbol) \
  ".hidden " symbol "\n.type " symbol ",%object\n.size " symbol ", . - " symbol "\n"
#endif

// The compiler goes on in the section for code.
#define DATA_FILE(name, symbol)                                                              \
  asm(READ_ONLY ".balign 64\n.globl " symbol "\n" symbol ":\n.incbin \"" VEK_TABLES "/" name \
                ".bin\"\n" AS_OBJECT(symbol) ".text\n")

DATA_FILE("pt", "vek_chart_pt");
DATA_FILE("pv", "vek_chart_pv");
DATA_FILE("ph", "vek_chart_ph");
DATA_FILE("ps", "vek_chart_ps");
DATA_FILE("pu", "vek_chart_pu");
DATA_FILE("tv", "vek_chart_tv");
DATA_FILE("th", "vek_chart_th");
DATA_FILE("tu", "vek_chart_tu");
DATA_FILE("ts", "vek_chart_ts");
DATA_FILE("hs", "vek_chart_hs");
DATA_FILE("us", "vek_chart_us");
DATA_FILE("vh", "vek_chart_vh");
DATA_FILE("vs", "vek_chart_vs");
DATA_FILE("vu", "vek_chart_vu");
DATA_FILE("saturation_line", "vek_saturation_line");
DATA_FILE("saturated_states", "vek_saturated_states");
