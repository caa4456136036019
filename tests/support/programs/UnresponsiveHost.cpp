#include <unistd.h>

// Accepts a report host's arguments and never listens. Exits after a timeout if it is not killed.
int main() { return ::sleep(120) == 0 ? 0 : 1; }
