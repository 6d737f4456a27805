// node edit.js [KEY]: lets the user edit the settings of a key, and stores them on OK. Needs koffi, which calls functions of
// DLLs: npm install.
//
// Node.js knows nothing of COM, so that the object's methods are called through its table of functions, in the order of
// the type library behind the seven of IDispatch.
const koffi = require('koffi');

const ole32 = koffi.load('ole32.dll');
const oleaut32 = koffi.load('oleaut32.dll');
const CoInitializeEx = ole32.func('int32 __stdcall CoInitializeEx(void *reserved, uint32 model)');
const CoUninitialize = ole32.func('void __stdcall CoUninitialize()');
const CoCreateInstance = ole32.func(
    'int32 __stdcall CoCreateInstance(const uint8 *clsid, void *outer, uint32 context, const uint8 *iid, _Out_ void **object)');
const SysAllocString = oleaut32.func('void *__stdcall SysAllocString(str16 text)');
const SysFreeString = oleaut32.func('void __stdcall SysFreeString(void *text)');

const AllPages = -1, OK = 1;
const SINGLE_THREADED = 2, INPROC_SERVER = 1;

// The bytes of an identifier as they lie in memory.
function guid(text) {
    const [first, second, third, ...rest] = text.split('-');
    const little = (hex) => Buffer.from(hex, 'hex').reverse();
    return Buffer.concat([little(first), little(second), little(third), Buffer.from(rest.join(''), 'hex')]);
}

function check(result) {
    if (result < 0) throw new Error(`failed: 0x${(result >>> 0).toString(16)}`);
}

// The methods that this host uses: their place behind those of IUnknown and IDispatch, and their arguments.
const FIRST = 7;
const methods = {
    OpenDialog: [FIRST, 'int32 OpenDialog(void *self, int32 lang_id, _Out_ int32 *exitCode)'],
    EnablePage: [FIRST + 1, 'int32 EnablePage(void *self, int32 page_id)'],
    InitFromRegistry: [FIRST + 4, 'int32 InitFromRegistry(void *self, int32 page_id, void *sub_key)'],
    StoreInRegistry: [FIRST + 5, 'int32 StoreInRegistry(void *self, int32 page_id, void *sub_path)'],
    SetTitle: [FIRST + 6, 'int32 SetTitle(void *self, void *WindowTitle)'],
    Release: [2, 'uint32 Release(void *self)'],
};

function withMethods(object) {
    const table = koffi.decode(object, 'void *');
    const bound = {};
    for (const [name, [place, declaration]] of Object.entries(methods)) {
        const address = koffi.decode(table, place * 8, 'void *');
        const prototype = koffi.proto(declaration);
        bound[name] = (...values) => koffi.call(address, prototype, object, ...values);
    }
    return bound;
}

check(CoInitializeEx(null, SINGLE_THREADED));
const created = [null];
check(CoCreateInstance(guid('2EE01CFA-139F-431E-BB1D-5E56B4DCEC18'), null, INPROC_SERVER,
                       guid('FA1B9B7A-AA93-48A6-9918-60E8B1F53B1C'), created));
const preferences = withMethods(created[0]);
const key = SysAllocString(process.argv[2] ?? '');
const title = SysAllocString('Edited by Node.js');

check(preferences.InitFromRegistry(AllPages, key));
check(preferences.EnablePage(AllPages));
check(preferences.SetTitle(title));
const exitCode = [-1];
check(preferences.OpenDialog(0, exitCode));
if (exitCode[0] === OK) check(preferences.StoreInRegistry(AllPages, key));
console.log(`exit code ${exitCode[0]}`);

SysFreeString(title);
SysFreeString(key);
preferences.Release();
CoUninitialize();
