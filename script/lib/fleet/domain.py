"""A domain of its own, on a loopback address of its own: a real domain controller, the policies of a house in it, and clients
that read them with tickets of their users. To be run in namespaces of the network, of mounts and of processes that end with it
(script/fleet-test makes them): nothing here stops what it starts."""
import contextlib
import json
import os
import secrets
import socket
import subprocess
import sys
import time
from pathlib import Path

import admx
import client
import house

from samba import gpo
from samba.auth import system_session
from samba.credentials import MUST_USE_KERBEROS, SPECIFIED, Credentials
from samba.dcerpc import preg
from samba.ndr import ndr_pack, ndr_unpack
from samba.param import LoadParm
from samba.samba3 import libsmb_samba_internal as libsmb
from samba.samba3 import param as s3param
from samba.samdb import SamDB
import ldb

ADDRESS, REALM, HOST = "10.53.0.1", "FLEET.TEST", "dc1.fleet.test"
DOMAIN = "DC=fleet,DC=test"
POLICIES = "fleet.test/Policies"
STORE = POLICIES + "/PolicyDefinitions"
PORTS = (88, 389, 445)
PATIENCE = 60  # seconds

REGISTRY_EXTENSIONS = f"[{client.REGISTRY_PART}{{0F6B957E-509E-11D1-A7CC-0000F87571E3}}]"
PREFERENCES_EXTENSIONS = ("[{00000000-0000-0000-0000-000000000000}{BEE07A6A-EC9F-4659-B8C9-0B1937907C83}]"
                          f"[{client.PREFERENCES_PART}{{BEE07A6A-EC9F-4659-B8C9-0B1937907C83}}]")


def say(text):
    print(f"    {text}", file=sys.stderr, flush=True)


def run(*command, lines="", ticket=None):
    """What the command prints; the lines are what it reads, and the ticket is whom it is run for."""
    environment = {**os.environ, "KRB5CCNAME": f"FILE:{ticket}"} if ticket else None
    done = subprocess.run([str(word) for word in command], input=lines, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                          env=environment, text=True, check=False)
    if done.returncode != 0:
        raise SystemExit(f"error: {' '.join(map(str, command[:3]))}... failed:\n{done.stdout}")
    return done.stdout


# --- the machine


def make_network(folder):
    """The namespaces are new: nothing but this domain is to be reached, and what the daemons keep goes with them."""
    run("ip", "link", "set", "lo", "up")
    run("ip", "address", "add", f"{ADDRESS}/32", "dev", "lo")
    run("mount", "--make-rprivate", "/")
    hosts = folder / "hosts"
    hosts.write_text(f"127.0.0.1 localhost\n{ADDRESS} {HOST} dc1\n")
    run("mount", "--bind", hosts, "/etc/hosts")
    for state in ("/run/samba", "/var/lib/samba", "/var/cache/samba", "/var/log/samba"):
        if os.path.isdir(state):
            run("mount", "-t", "tmpfs", "none", state)
    kerberos = folder / "krb5.conf"
    kerberos.write_text(f"[libdefaults]\n default_realm = {REALM}\n dns_lookup_kdc = false\n dns_lookup_realm = false\n"
                        f"[realms]\n {REALM} = {{\n  kdc = {ADDRESS}\n }}\n[domain_realm]\n .fleet.test = {REALM}\n")
    os.environ["KRB5_CONFIG"] = str(kerberos)


def wait_for(condition, what):
    end = time.monotonic() + PATIENCE
    while not condition():
        if time.monotonic() > end:
            raise SystemExit(f"error: {what} within {PATIENCE} seconds")
        time.sleep(0.05)


def listens(port):
    with contextlib.suppress(OSError), socket.create_connection((ADDRESS, port), 1):
        return True
    return False


class Controller:
    """The domain controller and what an administrator does on it."""

    def __init__(self, folder, password):
        self.folder, self.password = folder, password
        self.state = folder / "state"
        self.configuration = self.state / "etc/smb.conf"

    def provision(self):
        begin = time.monotonic()
        run("samba-tool", "domain", "provision", f"--targetdir={self.state}", f"--realm={REALM}", "--domain=FLEET",
            f"--adminpass={self.password}", "--dns-backend=NONE", "--server-role=dc", "--host-name=dc1",
            f"--host-ip={ADDRESS}", f"--option=interfaces={ADDRESS}", "--option=bind interfaces only=yes")
        say(f"domain provisioned in {time.monotonic() - begin:.1f} s")

    def add_users(self, count):
        """While the controller does not run yet, straight into its data base."""
        begin = time.monotonic()
        base = SamDB(url=str(self.state / "private/sam.ldb"), session_info=system_session(),
                     lp=parameters_of(self.configuration))
        for unit in house.DOMAIN_USERS_UNITS:
            base.create_ou(f"OU={unit},{DOMAIN}")
        # Samba's client library knows users only that are the machine's own, too, as this one is.
        base.rename(f"CN=Administrator,CN=Users,{DOMAIN}", f"CN=Administrator,OU=Print,{DOMAIN}")
        for number in range(count):
            base.newuser(user_name(number), self.password, userou=f"OU={unit_of(number)}")
        found = base.search(base=DOMAIN, expression="(&(objectClass=user)(sAMAccountName=user*))",
                            attrs=["sAMAccountName", "objectSid"])
        say(f"{count} users made in {time.monotonic() - begin:.1f} s")
        return {str(user["sAMAccountName"]): base.schema_format_value("objectSID", user["objectSid"][0]).decode()
                for user in found}

    def start(self):
        begin = time.monotonic()
        with open(self.folder / "samba.log", "w", encoding="utf-8") as log:
            subprocess.Popen(["samba", "-F", "--no-process-group", "-s", str(self.configuration)], stdin=subprocess.DEVNULL,
                             stdout=log, stderr=log)
        wait_for(lambda: all(map(listens, PORTS)), "the domain controller does not answer")
        say(f"domain controller up in {time.monotonic() - begin:.1f} s")

    def log_on(self):
        kinit("administrator", self.password, self.folder / "administrator.ticket")

    def tool(self, *words):
        return run("samba-tool", *words, "-H", f"ldap://{HOST}", "--use-kerberos=required", "-s", self.configuration,
                   ticket=self.folder / "administrator.ticket")

    def put(self, files):
        """Files for SYSVOL, {path: bytes}, over SMB."""
        put(self.folder, self.folder / "administrator.ticket", self.configuration, files)

    def get(self, path):
        return Share(self.folder, self.folder / "administrator.ticket", self.configuration).read(path)

    def base(self):
        return directory(self.configuration, self.folder / "administrator.ticket")


def user_name(number):
    return f"user{number:04}"


def unit_of(number):
    return house.DOMAIN_USERS_UNITS[number % len(house.DOMAIN_USERS_UNITS)]


# --- tickets, SMB and LDAP


def kinit(user, password, ticket):
    run("kinit", "-c", f"FILE:{ticket}", f"{user}@{REALM}", lines=password + "\n")


class Share:
    """SYSVOL as somebody with a ticket has it, by smbclient."""

    def __init__(self, folder, ticket, configuration):
        self.folder, self.ticket, self.configuration = folder, ticket, configuration

    def commands(self, commands):
        return run("smbclient", f"//{HOST}/sysvol", "--use-kerberos=required", "-s", self.configuration, "-c",
                   "; ".join(commands), ticket=self.ticket)

    def read(self, path):
        local = self.folder / "got"
        local.unlink(missing_ok=True)
        self.commands([f'get "{windows(path)}" "{local}"'])
        return local.read_bytes()


def windows(path):
    return path.replace("/", "\\")


def put(folder, ticket, configuration, files):
    commands, made = [], set()
    for number, (path, data) in enumerate(files.items()):
        local = folder / f"put{number}"
        local.write_bytes(data)
        parts = path.split("/")[:-1]
        for depth in range(3, len(parts) + 1):
            parent = "/".join(parts[:depth])
            if parent not in made:
                made.add(parent)
                commands.append(f'mkdir "{windows(parent)}"')
        commands.append(f'put "{local}" "{windows(path)}"')
    # A folder that is there already is no failure of the commands behind it.
    Share(folder, ticket, configuration).commands(commands)


def parameters_of(configuration):
    parameters = LoadParm()
    parameters.load(str(configuration))
    return parameters


def directory(configuration, ticket):
    parameters = parameters_of(configuration)
    credentials = Credentials()
    credentials.guess(parameters)
    credentials.set_kerberos_state(MUST_USE_KERBEROS)
    credentials.set_named_ccache(f"FILE:{ticket}", SPECIFIED, parameters)
    return SamDB(url=f"ldap://{HOST}", credentials=credentials, lp=parameters)


# --- what the editor of policies leaves on the controller


def registry_pol(entries):
    file = preg.file()
    file.header.signature, file.header.version = "PReg", 1
    packed = []
    for entry in entries:
        value = preg.entry()
        value.keyname, value.valuename, value.type, value.data = entry.key, entry.name, entry.kind, entry.data
        packed.append(value)
    file.entries, file.num_entries = packed, len(packed)
    return ndr_pack(file)


def entries_of_pol(data):
    # What the entries are made of belongs to the file, which has to be there as long.
    file = ndr_unpack(preg.file, data)
    return [admx.Entry(value.keyname, value.valuename, value.type, value.data) for value in file.entries]


class PolicyObjects:
    """The policy objects of a controller, by the names that administrators give them."""

    def __init__(self, controller):
        self.controller = controller
        self.names = {}
        self.versions = {}

    def create(self, name):
        output = self.controller.tool("gpo", "create", name, f"--tmpdir={self.controller.folder}")
        self.names[name] = output[output.index("{"):output.index("}") + 1]
        self.versions[name] = 0

    def fill(self, name, entries, items=None):
        guid = self.names[name]
        self.versions[name] += 1
        version = self.versions[name] << 16
        files = {f"{POLICIES}/{guid}/GPT.INI": f"[General]\r\nVersion={version}\r\n".encode(),
                 f"{POLICIES}/{guid}/User/Registry.pol": registry_pol(entries)}
        extensions = REGISTRY_EXTENSIONS
        if items:
            files[f"{POLICIES}/{guid}/User/Preferences/Registry/Registry.xml"] = items
            extensions = PREFERENCES_EXTENSIONS.replace("][", "]" + REGISTRY_EXTENSIONS + "[", 1)
        self.controller.put(files)
        base = self.controller.base()
        message = ldb.Message(ldb.Dn(base, f"CN={guid},CN=Policies,CN=System,{DOMAIN}"))
        for attribute, value in (("versionNumber", str(version)), ("gPCUserExtensionNames", extensions)):
            message[attribute] = ldb.MessageElement(value, ldb.FLAG_MOD_REPLACE, attribute)
        base.modify(message)

    def link(self, name, container, *options):
        self.controller.tool("gpo", "setlink", container, self.names[name], *options)

    def unlink(self, name, container):
        self.controller.tool("gpo", "dellink", container, self.names[name])


# --- what a client does


def containers_of(base, distinguished_name):
    """From the domain down to the user."""
    containers, place = [], ldb.Dn(base, distinguished_name).parent()
    while True:
        found = base.search(base=place, scope=ldb.SCOPE_BASE, attrs=["gPLink", "gPOptions", "objectClass"])[0]
        kinds = {str(kind) for kind in found["objectClass"]}
        if kinds & {"organizationalUnit", "domainDNS"}:
            containers.append(client.Container(str(found.get("gPLink", "")), int(str(found.get("gPOptions", "0")))))
        if "domainDNS" in kinds:
            return containers[::-1]
        place = place.parent()


def object_of(base, distinguished_name):
    found = base.search(base=distinguished_name, scope=ldb.SCOPE_BASE,
                        attrs=["cn", "flags", "versionNumber", "gPCUserExtensionNames"])[0]
    return client.PolicyObject(str(found["cn"]), int(str(found.get("flags", "0"))), int(str(found.get("versionNumber", "0"))),
                               str(found.get("gPCUserExtensionNames", "")))


def policy_of(base, user, read):
    """The names of the user's policy objects in their order, and the values that come of them. The parts of a policy are
    applied one after the other, each of all objects."""
    found = base.search(base=DOMAIN, expression=f"(sAMAccountName={user})", attrs=[])[0]
    objects = [object_of(base, name) for name in client.in_order(containers_of(base, str(found.dn)))]
    values = {}
    for policy in objects:
        if policy.has(client.REGISTRY_PART):
            client.applied(values, entries_of_pol(read(f"{POLICIES}/{policy.name}/User/Registry.pol")))
    for policy in objects:
        if policy.has(client.PREFERENCES_PART):
            client.applied(values, client.items(read(f"{POLICIES}/{policy.name}/User/Preferences/Registry/Registry.xml")))
    return [policy.name for policy in objects], values


def own_configuration(folder):
    """Of a machine that has nothing to do with the controller but that it belongs to the domain."""
    configuration = folder / "smb.conf"
    configuration.write_text(f"[global]\n workgroup = FLEET\n realm = {REALM}\n interfaces = {ADDRESS}\n"
                             f" bind interfaces only = yes\n lock directory = {folder}\n state directory = {folder}\n"
                             f" cache directory = {folder}\n private dir = {folder}\n")
    return configuration


def read_as_user(folder, hidden, user, password):
    """A user of another machine logs on: the controller's folder is not to be seen there. Leaves the values, and the order of
    the policy objects."""
    run("mount", "-t", "tmpfs", "none", hidden)
    configuration, ticket = own_configuration(folder), folder / "user.ticket"
    kinit(user, password, ticket)
    names, values = policy_of(directory(configuration, ticket), user,
                              Share(folder, ticket, configuration).read)
    write_values(folder / "values.reg", values)
    (folder / "order.json").write_text(json.dumps(names))


def order_of_library(configuration, user, password):
    """The order of the policy objects as Samba's own clients go by it."""
    context = s3param.get_context()
    context.load(str(configuration))
    searcher = gpo.ADS_STRUCT(HOST, context, user_credentials(parameters_of(configuration), user, password))
    if not searcher.connect():
        raise SystemExit("error: Samba's client library does not reach the controller")
    return [found.name for found in searcher.get_gpo_list(user) if found.name.startswith("{")]


def user_credentials(parameters, user, password):
    """They get their ticket when they are used."""
    credentials = Credentials()
    credentials.guess(parameters)
    credentials.set_username(user)
    credentials.set_password(password)
    credentials.set_realm(REALM)
    credentials.set_domain("FLEET")
    credentials.set_kerberos_state(MUST_USE_KERBEROS)
    return credentials


class Reader:
    """One user after the other, in one process: each with a ticket and connections of his own."""

    def __init__(self, folder, password):
        self.configuration, self.password = own_configuration(folder), password
        self.parameters = parameters_of(self.configuration)
        self.context = s3param.get_context()
        self.context.load(str(self.configuration))

    def policy(self, user):
        credentials = user_credentials(self.parameters, user, self.password)
        share = libsmb.Conn(HOST, "sysvol", lp=self.context, creds=credentials)
        base = SamDB(url=f"ldap://{HOST}", credentials=credentials, lp=self.parameters)
        return policy_of(base, user, lambda path: share.loadfile(windows(path)))


def write_values(path, values):
    path.write_bytes(client.registry_file(values))


# --- all of it


def client_of_its_own(folder, controller, user):
    """read_as_user in a namespace of mounts of its own."""
    folder.mkdir()
    program = Path(__file__).parent
    run("unshare", "--mount", "--propagation", "private", sys.executable, "-B", program, "client", folder, controller.state,
        user, lines=controller.password + "\n")
    return json.loads((folder / "order.json").read_text())


def planted(folder, controller, objects, definitions, chosen):
    """The same client when an object says something wrong, and when two are in the wrong order: neither may pass."""
    wrong = {**chosen[house.PRINT], "Info_Author": "somebody else"}
    objects.fill(house.PRINT, house.entries(definitions, wrong), items_of_object(folder, house.PRINT))
    client_of_its_own(folder / "wrong-value", controller, user_name(0))
    objects.fill(house.PRINT, house.entries(definitions, chosen[house.PRINT]), items_of_object(folder, house.PRINT))
    # What is linked last at a container is its weakest.
    objects.unlink(house.HOUSE, DOMAIN)
    objects.link(house.HOUSE, DOMAIN)
    client_of_its_own(folder / "wrong-order", controller, user_name(0))
    objects.unlink(house.OLD, DOMAIN)
    objects.link(house.OLD, DOMAIN)


def make_items(folder, kit):
    """What no policy has comes as items, which the generator makes like those of the kit."""
    for name, values in ((house.HOUSE, house.HOUSE_ITEMS), (house.PRINT, house.PRINT_ITEMS)):
        program = kit.parent / "tools/policy"
        run(program / "policy_files", f"--german={kit.parent / 'languages/german.vlf'}", f"--german={program / 'german.vlf'}",
            folder / "items" / name, *values)


def items_of_object(folder, name):
    path = folder / "items" / name / "Registry.xml"
    return path.read_bytes() if path.exists() else None


def make_policies(folder, controller, kit):
    """Central store, policy objects and links. What the objects say is made with the definitions that the store holds."""
    stem = "vmkctrl"
    make_items(folder, kit)
    controller.put({f"{STORE}/{path}": (kit / path).read_bytes()
                    for path in (f"{stem}.admx", f"en-US/{stem}.adml", f"de-DE/{stem}.adml")})
    definitions = admx.Definitions(controller.get(f"{STORE}/{stem}.admx"), controller.get(f"{STORE}/en-US/{stem}.adml"))
    defaults = {entry.name: entry.data for entry in client.items((kit / "Registry.xml").read_bytes())}
    chosen = house.states(definitions, defaults)
    objects = PolicyObjects(controller)
    for name, states in chosen.items():
        objects.create(name)
        objects.fill(name, house.entries(definitions, states), items_of_object(folder, name))
    # The next one that is linked at a container is weaker than those before it.
    for name, options in ((house.HOUSE, ()), (house.OLD, ()), (house.UNUSED, ("--disable",)), (house.ENFORCED, ("--enforce",))):
        objects.link(name, DOMAIN, *options)
    objects.link(house.PRINT, f"OU=Print,{DOMAIN}")
    return definitions, chosen, objects


def expected(folder, definitions, chosen, unit):
    all_entries = {name: house.entries(definitions, states) for name, states in chosen.items()}
    all_items = {name: client.items(items_of_object(folder, name)) for name in (house.HOUSE, house.PRINT)}
    return house.expected_values(all_entries, all_items, unit)


def read_for_all(folder, controller, users, wanted):
    """Every user's policy; a hive of values for each, and how long each took."""
    (folder / "users").mkdir()
    (controller.folder / "reader").mkdir()
    reader, times = Reader(controller.folder / "reader", controller.password), []
    for number in range(len(users)):
        name = user_name(number)
        begin = time.monotonic()
        _, values = reader.policy(name)
        times.append((time.monotonic() - begin) * 1000)
        if values != wanted[unit_of(number)]:
            raise SystemExit(f"error: {name} gets something else than the policy says")
        stored = {place: entry for place, entry in values.items() if entry.data is not None}
        write_values(folder / "users" / f"{users[name]}.reg", stored)
    (folder / "reading.json").write_text(json.dumps(times))


def whole(folder, kit, count):
    password = "A1-" + secrets.token_urlsafe(18)
    work = folder / "domain"
    work.mkdir()
    make_network(work)
    controller = Controller(work, password)
    controller.provision()
    users = controller.add_users(count)
    controller.start()
    controller.log_on()
    definitions, chosen, objects = make_policies(folder, controller, kit)
    wanted = {unit: expected(folder, definitions, chosen, unit) for unit in house.DOMAIN_USERS_UNITS}
    (folder / "shown.json").write_text(json.dumps(house.shown(definitions, chosen, "Print")))
    say(f"{len(chosen)} policy objects made of {len(definitions.policies)} policies, over LDAP and SMB")

    order = client_of_its_own(folder / "good", controller, user_name(0))
    theirs = order_of_library(controller.configuration, "administrator", password)
    if order != theirs or order[-1] != objects.names[house.ENFORCED]:
        raise SystemExit(f"error: {order} is another order than that of Samba's client library, {theirs}")
    say("read back by a client with a user's ticket, in the order of Samba's client library")
    read_for_all(folder, controller, users, wanted)
    say(f"read by {count} users, each with a ticket of his own")
    planted(folder, controller, objects, definitions, chosen)
    say("read once more with a wrong value, and in a wrong order")
