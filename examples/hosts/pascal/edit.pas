{ edit [KEY]: lets the user edit the settings of a key, and stores them on OK.

      fpc -Twin64 edit.pas }
{$mode objfpc}{$H+}
program edit;

uses
  SysUtils, Variants, ActiveX, ComObj;

const
  AllPages = -1;
  OK = 1;

type
  { As the type library has it: a dual interface, whose methods are called without a detour. }
  IPdfPrinterPreferences = interface(IDispatch)
    ['{FA1B9B7A-AA93-48A6-9918-60E8B1F53B1C}']
    function OpenDialog(lang_id: LongInt; out exitCode: LongInt): HRESULT; stdcall;
    function EnablePage(page_id: LongInt): HRESULT; stdcall;
    function DisablePage(page_id: LongInt): HRESULT; stdcall;
    function UseDefaultValues(page_id: LongInt): HRESULT; stdcall;
    function InitFromRegistry(page_id: LongInt; const sub_key: WideString): HRESULT; stdcall;
    function StoreInRegistry(page_id: LongInt; const sub_path: WideString): HRESULT; stdcall;
    function SetTitle(const WindowTitle: WideString): HRESULT; stdcall;
  end;

const
  CLASS_PdfPrinterPreferences: TGUID = '{2EE01CFA-139F-431E-BB1D-5E56B4DCEC18}';

var
  preferences: IPdfPrinterPreferences;
  exitCode: LongInt;
  key: WideString;

begin
  { The unit ComObj has made this thread a single-threaded apartment. }
  key := WideString(ParamStr(1));
  preferences := CreateComObject(CLASS_PdfPrinterPreferences) as IPdfPrinterPreferences;
  OleCheck(preferences.InitFromRegistry(AllPages, key));
  OleCheck(preferences.EnablePage(AllPages));
  OleCheck(preferences.SetTitle('Edited by Pascal'));
  OleCheck(preferences.OpenDialog(0, exitCode));
  if exitCode = OK then
    OleCheck(preferences.StoreInRegistry(AllPages, key));
  WriteLn('exit code ', exitCode);
  preferences := nil;
end.
