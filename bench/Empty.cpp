// A program that does nothing.

int main() {}
