# Runs ansible-playbook with the ostrel module against local host aliases, using the ostrel of
# the build tree (OSTREL_BUILD_DIR, default build/test), and checks what the tasks returned.
import json
import os
import shutil
import subprocess
import unittest
import xml.etree.ElementTree as ElementTree

HERE = os.path.dirname(os.path.abspath(__file__))
REPO = os.path.normpath(os.path.join(HERE, '..', '..', '..'))
BUILD = os.path.abspath(os.environ.get('OSTREL_BUILD_DIR', os.path.join(REPO, 'build', 'test')))
OSTREL = os.path.join(BUILD, 'tools', 'ostrel', 'ostrel')
BUNDLED = os.path.join(BUILD, 'plugins', 'bundled')
WORK = os.path.join(BUILD, 'ansible-e2e')
HOSTS = ('alpha', 'beta', 'gamma')
SECRET = 'Zq9-open-sesame'


def prepare_work_dir():
    shutil.rmtree(WORK, ignore_errors=True)
    os.makedirs(os.path.join(WORK, 'out'))
    with open(os.path.join(HERE, 'fixtures', 'probe.xml.in'), encoding='utf-8') as template:
        text = template.read().replace('@FIXTURES@', os.path.join(HERE, 'fixtures'))
    with open(os.path.join(WORK, 'probe.xml'), 'w', encoding='utf-8') as probe:
        probe.write(text)
    with open(os.path.join(WORK, 'ansible.cfg'), 'w', encoding='utf-8') as config:
        config.write('[defaults]\n')  # settings come from the environment
    with open(os.path.join(WORK, 'hosts.ini'), 'w', encoding='utf-8') as inventory:
        inventory.write('[ostrel_hosts]\n%s\n\n[all:vars]\nansible_connection=local\n'
                        'ansible_python_interpreter=/usr/bin/python3\n' % '\n'.join(HOSTS))


def ansible_environment():
    env = dict(os.environ)
    env.update({
        'ANSIBLE_CONFIG': os.path.join(WORK, 'ansible.cfg'),
        'ANSIBLE_HOME': os.path.join(WORK, 'home'),
        'ANSIBLE_LOCAL_TEMP': os.path.join(WORK, 'tmp', 'local'),
        'ANSIBLE_REMOTE_TEMP': os.path.join(WORK, 'tmp', 'remote'),
        'ANSIBLE_LIBRARY': os.path.join(REPO, 'contrib', 'ansible', 'library'),
        'ANSIBLE_HOST_KEY_CHECKING': 'False',
        'ANSIBLE_NOCOWS': '1',
        'ANSIBLE_NOCOLOR': '1',
        'ANSIBLE_RETRY_FILES_ENABLED': 'False',
        'ANSIBLE_FORKS': str(len(HOSTS)),
        'ANSIBLE_STDOUT_CALLBACK': 'default',
        'ANSIBLE_CALLBACK_RESULT_FORMAT': 'json',
    })
    env.pop('OSTREL_SKIP_DEFAULT_PLUGINS', None)
    return env


def run_playbook(playbook, variables):
    path = os.path.join(WORK, os.path.basename(playbook) + '.vars.json')
    with open(path, 'w', encoding='utf-8') as file:
        json.dump(variables, file)
    return subprocess.run(
        ['ansible-playbook', '-v', '-i', os.path.join(WORK, 'hosts.ini'), '-e', '@' + path,
         playbook], cwd=WORK, env=ansible_environment(), stdin=subprocess.DEVNULL,
        capture_output=True, text=True, timeout=300)


def tool_output(*words):
    """The tool's own XML output for a command, read with the standard library's parser."""
    env = dict(os.environ, OSTREL_SKIP_DEFAULT_PLUGINS='1')
    text = subprocess.run([OSTREL, '--formatter', 'xml', '--plugin-dir', BUNDLED] + list(words),
                          env=env, check=True, capture_output=True).stdout
    (value,) = ElementTree.fromstring(text).find('root')
    return element_value(value)


def element_value(element):
    if element.tag == 'structure':
        return {field.get('name'): element_value(field[0]) for field in element}
    if element.tag == 'list':
        return [element_value(item) for item in element]
    text = element.text or ''
    return {'integer': int, 'boolean': lambda t: t == 'true'}.get(element.tag, str)(text)


class PlaybookTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        prepare_work_dir()
        cls.playbook = run_playbook(os.path.join(HERE, 'e2e.yml'), {
            'ostrel': OSTREL, 'bundled_dir': BUNDLED, 'probe': os.path.join(WORK, 'probe.xml'),
            'broken': os.path.join(HERE, 'fixtures', 'broken.xml'),
            'out_dir': os.path.join(WORK, 'out'), 'secret': SECRET})
        cls.console = cls.playbook.stdout + cls.playbook.stderr

    def saved(self, host, name):
        with open(os.path.join(WORK, 'out', '%s-%s.json' % (host, name)), encoding='utf-8') as f:
            return json.load(f)

    def test_reading_commands_return_what_the_tool_prints(self):
        self.assertIn('ok: [alpha]', self.console)
        expected = {'hostname': tool_output('system', 'hostname', 'get'),
                    'commands': tool_output('ostrel', 'command', 'list')}
        self.assertGreater(len(expected['commands']), 10)
        for host in HOSTS:
            for name, value in expected.items():
                with self.subTest(host=host, command=name):
                    run = self.saved(host, name)
                    self.assertEqual(run['result'], value)
                    self.assertFalse(run['changed'])
                    self.assertEqual(run['errors'], [])

    def test_values_reach_the_command_unchanged_and_secrets_nowhere_else(self):
        for host in HOSTS:
            run = self.saved(host, 'probe')
            self.assertEqual(run['result'], {
                'Text': '-a <b> & "c" $HOME ~ --x=1\nzweite Zeile ü 汉字',
                'Tags': ['x', '-y', '--z=2'], 'Count': -3, 'Loud': True, 'Accepted': True})
            self.assertTrue(run['changed'])
            self.assertNotIn(SECRET, ' '.join(run['cmd']))
        self.assertIn('"--text=-a <b>', self.console)  # -v shows the results
        self.assertNotIn(SECRET, self.console)
        for name in os.listdir(os.path.join(WORK, 'out')):
            with open(os.path.join(WORK, 'out', name), encoding='utf-8') as file:
                self.assertNotIn(SECRET, file.read(), name)

    def test_failures_carry_a_clear_message(self):
        bad = self.saved('alpha', 'bad_value')
        self.assertTrue(bad['failed'])
        self.assertEqual(bad['errors'],
                         ["Invalid data 'many' for parameter count expected type Integer"])
        self.assertIn("Invalid data 'many' for parameter count", bad['msg'])
        self.assertEqual(bad['rc'], 1)
        self.assertEqual(self.saved('beta', 'no_tool')['msg'],
                         'ostrel_path /nonexistent/ostrel is not an executable file on this host')
        self.assertIn('ostrel is not installed on this host (not found on PATH /nonexistent)',
                      self.saved('gamma', 'not_on_path')['msg'])

    def test_check_mode_runs_only_reading_commands(self):
        change = self.saved('alpha', 'check_change')
        self.assertTrue(change['changed'])
        self.assertIsNone(change['result'])
        self.assertNotIn('rc', change)
        read = self.saved('alpha', 'check_read')
        self.assertFalse(read['changed'])
        self.assertEqual(read['result'], self.saved('alpha', 'hostname')['result'])

    def test_a_broken_plugin_fails_its_host_only(self):
        self.assertEqual(self.playbook.returncode, 2, self.console)
        for host in ('alpha', 'beta'):
            self.assertEqual(self.saved(host, 'after')['result']['Text'], 'after')
        self.assertFalse(os.path.exists(os.path.join(WORK, 'out', 'gamma-after.json')))
        line = [line for line in self.playbook.stdout.splitlines()
                   if line.startswith("fatal: [gamma]")][-1]
        failure = json.loads(line.split('=> ', 1)[1])
        self.assertIn('Unable to load plugin %s: ' % os.path.join(HERE, 'fixtures', 'broken.xml'),
                      failure['msg'])
        self.assertEqual(failure['errors'],
                         ["Unable to find a command or namespace with the name 'probe' in "
                          "namespace "])


class ExamplePlaybookTest(unittest.TestCase):
    def test_report_gathers_three_commands_of_every_host(self):
        if not os.path.isdir(WORK):
            prepare_work_dir()
        report_file = os.path.join(WORK, 'report.json')
        run = run_playbook(
            os.path.join(REPO, 'contrib', 'ansible', 'examples', 'ostrel-report.yml'),
            {'ostrel_path': OSTREL, 'ostrel_plugin_dirs': [BUNDLED],
             'ostrel_default_plugins': False, 'report_file': report_file})
        self.assertEqual(run.returncode, 0, run.stdout + run.stderr)
        with open(report_file, encoding='utf-8') as file:
            report = json.load(file)
        self.assertEqual(sorted(report), list(HOSTS))
        hostname = tool_output('system', 'hostname', 'get')
        for host in HOSTS:
            self.assertEqual(report[host]['hostname'], hostname)
            self.assertIsInstance(report[host]['uptime']['Seconds'], int)
            self.assertTrue(any(fs['Mount'] == '/' for fs in report[host]['filesystems']))


if __name__ == '__main__':
    unittest.main()
