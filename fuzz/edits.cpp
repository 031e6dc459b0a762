// Bytes as choices: a document by chance, cut by settings and draws by chance, written and read back.

#include "fuzz/edits/random_edit.h"
#include "fuzz/target.h"

std::string runFuzzInput(std::string_view bytes)
{
    corvane::test::ByteDraws draws(bytes);
    return corvane::test::makeRandomEdit(draws).broken;
}
