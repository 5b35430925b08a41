#include <iostream>

#include "batch/batch.h"
#include "core/program.h"

int main(int argc, char** argv) {
    quillmark::makeStandardStreamsBinary();
    return quillmark::runBatch(quillmark::programArguments(argc, argv), std::cin, std::cout,
                               std::cerr);
}
