// The input makes choices: a random document is cut by random settings and draws, written and read back.

#include "fuzz/edits/random_edit.h"
#include "fuzz/target.h"

std::string runFuzzInput(std::string_view bytes)
{
    corvane::test::ByteDraws draws(bytes);
    return corvane::test::makeRandomEdit(draws).broken;
}
