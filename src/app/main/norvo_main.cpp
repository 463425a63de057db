// The desktop program.
#include "app/screens/application.h"

int main(int argc, char** argv) {
    return norvo::gui::RunApplication(argc, argv);
}
