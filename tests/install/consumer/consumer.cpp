// Converts one material file with the installed library and prints its XML.
#include <cstdio>
#include <string>

#include "archive/text_conversion.h"
#include "module/material_conversion.h"

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: consumer FILE.talmat\n");
        return 2;
    }
    const std::string xml = TalvexCore::materialFileToXml(TalvexCore::narrowToWide(argv[1]));
    std::fputs(xml.c_str(), stdout);
    return xml.find("<talmat") == std::string::npos ? 1 : 0;
}
