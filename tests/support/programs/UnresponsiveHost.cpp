#include <unistd.h>

// Takes the arguments of a report host and listens to nobody. It ends by itself should nobody end it.
int main() { return ::sleep(120) == 0 ? 0 : 1; }
