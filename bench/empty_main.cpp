// The least that a program can be: the floor for the start of calyx-cli.

int main() {}
