// The one place where the decoder's bodies are compiled.
#include <cstdint>

#define MINIMP3_FLOAT_OUTPUT
#define MINIMP3_IMPLEMENTATION
#include <minimp3.h>
