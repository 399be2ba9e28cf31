// child_silent: writes nothing and exits at once.
int main() {
    return 0;
}
