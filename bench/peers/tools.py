"""The tools that are compared. Each is imported only when it is made; `run` does what pressing Tab does, `names` tells
which members it found."""


class Ours:
    name = "contextdata"

    def __init__(self, namespace):
        import contextdata
        self.complete = contextdata.complete
        self.namespace = namespace

    def run(self, text):
        return list(self.complete(text, namespace=self.namespace))

    def names(self, text):
        return [item.name for item in self.run(text)]


class Readline:
    name = "rlcompleter"

    def __init__(self, namespace):
        import rlcompleter
        self.completer = rlcompleter.Completer(namespace)

    def run(self, text):
        return self.completer.attr_matches(text)

    def names(self, text):
        return [match.rpartition(".")[2].rstrip("()") for match in self.run(text)]


class Shell:
    name = "IPython"
    use_jedi = False

    def __init__(self, namespace):
        from IPython.core.completer import provisionalcompleter
        from IPython.core.interactiveshell import InteractiveShell
        self.provisional = provisionalcompleter
        shell = InteractiveShell.instance()
        shell.user_ns.update(namespace)
        self.completer = shell.Completer

    def run(self, text):
        self.completer.use_jedi = self.use_jedi
        with self.provisional():
            return list(self.completer.completions(text, len(text)))

    def names(self, text):
        return [match.text.rpartition(".")[2] for match in self.run(text)]


class ShellWithJedi(Shell):
    name = "IPython + jedi"
    use_jedi = True


class Jedi:
    name = "jedi"

    def __init__(self, namespace):
        import jedi
        self.interpreter = jedi.Interpreter
        self.namespace = namespace

    def run(self, text):
        return self.interpreter(text, [self.namespace]).complete()

    def names(self, text):
        return [match.name for match in self.run(text)]


class Directory:
    """`dir()` alone: no tool, but what all of them but ours begin with."""

    name = "dir() alone"

    def __init__(self, namespace):
        self.namespace = namespace

    def run(self, text):
        return dir(self.namespace[text.partition(".")[0]])

    names = run


PEERS = (Readline, Shell, ShellWithJedi, Jedi)
EVERYBODY = (Ours, Directory, *PEERS)
