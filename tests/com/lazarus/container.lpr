{ Plays the recorded sessions in the ActiveX container of the Lazarus component library. }
program container;

{$mode objfpc}{$H+}
{$apptype console}

uses
  Interfaces, Forms, Controls, SysUtils, Windows, ActiveX, Variants, ActiveXContainer;

type
  TEmbed = function(Context: Pointer; out Control: IUnknown; out Container: HWND): HRESULT; stdcall;

function PlaySessions(Folder: PWideChar; Embed: TEmbed; Context: Pointer): LongInt; stdcall;
  external 'session_player.dll';

var
  Main: TForm;
  Box: TActiveXContainer;

function Embed(Context: Pointer; out Control: IUnknown; out Container: HWND): HRESULT; stdcall;
begin
  Result := E_FAIL;
  FreeAndNil(Box);
  Box := TActiveXContainer.Create(Main);
  Box.Parent := Main;
  Box.Align := alClient;
  Box.OleClassName := 'ZOLT20MappingCtrl.ZOLT20MapControl';
  Box.Active := True;
  Application.ProcessMessages;
  Control := Box.ComServer;
  Container := Main.Handle;
  Result := S_OK;
end;

var
  Differing: LongInt;
  Folder: WideString;
begin
  Application.Initialize;
  Main := TForm.CreateNew(nil);
  Main.SetBounds(20, 20, 900, 640);
  Main.Visible := True;
  Folder := WideString(ParamStr(1));
  Differing := PlaySessions(PWideChar(Folder), @Embed, nil);
  FreeAndNil(Box);
  Main.Free;
  if Differing <> 0 then
    Halt(1);
end.
