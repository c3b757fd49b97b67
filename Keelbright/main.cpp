#include "Keelbright/screens/shell/Application.h"

int main(int argc, char** argv)
{
    return keelbright::runApplication(argc, argv);
}
